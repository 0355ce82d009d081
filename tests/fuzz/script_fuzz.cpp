// Any bytes, read as a script. What a line says must survive being written with every value in quotes.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "velmora/adapters/script/command.h"

#include "expect.h"

namespace {

using namespace velmora::script;
using velmora::fuzz::expect;

std::string inQuotes(std::string_view text) {
    std::string all = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            all += '\\';
        }
        all += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return all + '"';
}

void survives(const Command& command) {
    std::string line = command.tried ? "try " : "";
    line += inQuotes(command.name);
    for (const Argument& argument : command.arguments) {
        line += ' ' + inQuotes(argument.text);
    }
    const std::optional<Command> again = parseLine(line, command.line);
    expect(again.has_value(), "a line of quoted values says something");
    expect(again->tried == command.tried && again->name == command.name, "the command survives");
    expect(again->arguments.size() == command.arguments.size(), "the number of values survives");
    for (std::size_t i = 0; i < command.arguments.size(); ++i) {
        expect(again->arguments[i].text == command.arguments[i].text, "each value survives");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    ScriptReader reader(in);
    int line = 0;
    for (bool ended = false; !ended;) {
        try {
            const std::optional<Command> command = reader.next();
            ended = !command;
            if (command) {
                expect(command->line == reader.line() && command->line > line, "line numbers rise");
                survives(*command);
            }
        } catch (const WrongScript&) {
            expect(reader.line() > line, "a wrong line is passed over");
        }
        line = reader.line();
    }
    return 0;
}
