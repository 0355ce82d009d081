#pragma once
// Parsing of script lines into commands.

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::script {

/// One value of a line. A quoted value may contain blanks; some commands treat a bare number differently from a quoted
/// one.
struct Argument {
    std::string text;
    bool quoted = false;

    friend bool operator==(const Argument&, const Argument&) = default;
};

struct Command {
    int line = 0;        ///< 1-based
    bool tried = false;  ///< the line began with `try`: a refusal does not end the script
    std::string name;
    std::vector<Argument> arguments;
};

/// The script itself is wrong: ends it with exit status 2. The text does not include the line number.
class WrongScript : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The command on a line; nullopt when the line is blank or a comment. Values are separated by blanks; a quoted one
/// supports \" \\ and \n, and may follow a `=` directly (text="a b"). A # where a value could begin starts a comment.
/// Errors: WrongScript for an unclosed quote, an unknown escape, a quote inside a bare value, `try` alone.
std::optional<Command> parseLine(std::string_view line, int number);

/// Reads a script line by line while it runs, so that it may come from a pipe. Lines end in LF or CR LF; a byte order
/// mark is skipped.
class ScriptReader {
  public:
    explicit ScriptReader(std::istream& in) : in_(in) {}
    ScriptReader(const ScriptReader&) = delete;
    ScriptReader& operator=(const ScriptReader&) = delete;

    /// The next command; nullopt at the end. Errors as parseLine.
    std::optional<Command> next();
    /// The number of the last line read.
    int line() const { return line_; }

  private:
    std::istream& in_;
    int line_ = 0;
};

}  // namespace velmora::script
