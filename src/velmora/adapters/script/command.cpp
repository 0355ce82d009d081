#include "velmora/adapters/script/command.h"

#include <utility>

namespace velmora::script {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Splits one line into values.
class Scanner {
  public:
    explicit Scanner(std::string_view line) : rest_(line) {}

    /// The next value; nullopt at the end of the line or before a comment.
    std::optional<Argument> next() {
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
        if (rest_.empty() || rest_.front() == '#') {
            return std::nullopt;
        }
        Argument argument;
        if (rest_.front() == '"') {
            argument.quoted = true;
            readQuoted(argument.text);
        } else {
            readBare(argument.text);
        }
        return argument;
    }

  private:
    void readBare(std::string& text) {
        while (!rest_.empty() && !isBlank(rest_.front())) {
            if (rest_.front() != '"') {
                text += take();
            } else if (!text.empty() && text.back() == '=') {
                readQuoted(text);
                return;
            } else {
                throw WrongScript("a quote inside a bare value");
            }
        }
    }

    void readQuoted(std::string& text) {
        take();
        while (!rest_.empty()) {
            const char c = take();
            if (c == '"') {
                if (!rest_.empty() && !isBlank(rest_.front())) {
                    throw WrongScript("no blank behind a closing quote");
                }
                return;
            }
            text += c == '\\' ? escaped() : c;
        }
        throw WrongScript("a quote is not closed");
    }

    char escaped() {
        const char c = rest_.empty() ? '\0' : take();
        switch (c) {
            case '"':
            case '\\':
                return c;
            case 'n':
                return '\n';
            default:
                throw WrongScript("an escape other than \\\" \\\\ \\n");
        }
    }

    char take() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    std::string_view rest_;
};

}  // namespace

std::optional<Command> parseLine(std::string_view line, int number) {
    Scanner scanner(line);
    std::optional<Argument> word = scanner.next();
    if (!word) {
        return std::nullopt;
    }
    Command command;
    command.line = number;
    if (!word->quoted && word->text == "try") {
        command.tried = true;
        word = scanner.next();
        if (!word) {
            throw WrongScript("try without a command");
        }
    }
    command.name = std::move(word->text);
    while ((word = scanner.next())) {
        command.arguments.push_back(std::move(*word));
    }
    return command;
}

std::optional<Command> ScriptReader::next() {
    std::string text;
    while (std::getline(in_, text)) {
        ++line_;
        std::string_view line = text;
        if (line_ == 1 && line.starts_with(byteOrderMark)) {
            line.remove_prefix(byteOrderMark.size());
        }
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (std::optional<Command> command = parseLine(line, line_)) {
            return command;
        }
    }
    return std::nullopt;
}

}  // namespace velmora::script
