#pragma once
// Lines of a script and what they say.

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::script {

/// One value of a line. Quoted values may hold blanks; some commands read a bare number otherwise than a quoted one.
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

/// The script itself is wrong: ends it with exit status 2. The text does not hold the line number.
class WrongScript : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The command on a line; none when the line is blank or a comment. Values are divided by blanks; a quoted one knows
/// \" \\ and \n, and may follow a `=` directly (text="a b"). A # where a value could begin starts a comment.
/// Errors: WrongScript for a quote that is not closed, an escape that nobody knows, a quote inside a bare value, `try`
/// alone.
std::optional<Command> parseLine(std::string_view line, int number);

/// Reads a script as it is played, so that it may come from a pipe. Lines end in LF or CR LF; a byte order mark is
/// passed over.
class ScriptReader {
  public:
    explicit ScriptReader(std::istream& in) : in_(in) {}
    ScriptReader(const ScriptReader&) = delete;
    ScriptReader& operator=(const ScriptReader&) = delete;

    /// The next command; none at the end. Errors as parseLine.
    std::optional<Command> next();
    /// The number of the line read last.
    int line() const { return line_; }

  private:
    std::istream& in_;
    int line_ = 0;
};

}  // namespace velmora::script
