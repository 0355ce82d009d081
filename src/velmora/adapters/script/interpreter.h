#pragma once
// Runs a script against the program: reads and executes commands, also inside the forms that they open.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/script/answers.h"
#include "velmora/adapters/script/command.h"
#include "velmora/adapters/script/ending.h"
#include "velmora/adapters/script/faults.h"
#include "velmora/adapters/script/journal.h"
#include "velmora/adapters/script/script_screen.h"
#include "velmora/adapters/script/shown_text.h"
#include "velmora/adapters/script/user.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::script {

/// The public operations under the names used by scripts. A wrong number or kind of arguments is WrongScript.
struct Operations {
    using Arguments = std::vector<Argument>;
    /// `open`: operations that open a form and return when it is closed.
    std::map<std::string, std::function<void(const Arguments&)>, std::less<>> open;
    /// `call`: the others; each returns the line to print.
    std::map<std::string, std::function<std::string(const Arguments&)>, std::less<>> call;
};

class Interpreter {
  public:
    /// What a script runs against; everything must outlive the interpreter.
    struct Stage {
        Journal& journal;
        Answers& answers;
        ScriptScreen& screen;
        Faults& program;          ///< of the connection that the program uses
        sql::Connection& engine;  ///< the same database, for the script's own queries
        const Operations& operations;
    };

    using Tell = std::function<void(std::string_view reason)>;

    /// Registers itself for the screen's idle time. `tell` receives the reason, with the line number, when a script
    /// ends early.
    Interpreter(Stage stage, ScriptReader& reader, Tell tell);

    /// Runs the script to its end. The status of a wrong script or an unanswered question takes precedence over failed
    /// checks.
    Status run();

  private:
    struct Entry {
        std::size_t least;
        std::size_t most;
        void (Interpreter::*play)(const Command&);
    };
    static const std::map<std::string_view, Entry>& table();

    bool playNext();
    void play(const Command& command);

    void open(const Command& command);
    void close(const Command& command);
    void call(const Command& command);
    void echo(const Command& command);

    void set(const Command& command);
    void type(const Command& command);
    void paste(const Command& command);
    void focus(const Command& command);
    void leave(const Command& command);
    void doubleClick(const Command& command);
    void choose(const Command& command);
    void check(const Command& command);
    void press(const Command& command);
    void key(const Command& command);
    void row(const Command& command);
    void cell(const Command& command);
    void gridKey(const Command& command);

    void answer(const Command& command);
    void pick(const Command& command);
    void file(const Command& command);
    void fail(const Command& command);
    void lose(const Command& command);

    void print(const Command& command);
    void state(const Command& command);
    void dump(const Command& command);
    void rows(const Command& command);
    void query(const Command& command);
    void status(const Command& command);
    void expectStatus(const Command& command);

    void expect(const Command& command);
    void expectState(const Command& command);
    void expectMessage(const Command& command);
    void expectQuery(const Command& command);

    screen::Form& top() const;
    /// The note of the user's action before is removed, as in a window.
    void beginAction();
    /// The control with this name on the topmost form that has one.
    screen::Control& control(std::string_view name) const;
    State stateNamed(std::string_view name) const;
    /// Performs a user action; a refusal ends the script unless the line began with `try`.
    void must(const Command& command, screen::Control& control, const std::function<bool()>& action);
    void checked(const Command& command, bool holds, std::string_view found);

    Stage stage_;
    ScriptReader& reader_;
    Tell tell_;
    User user_;
    bool checkFailed_ = false;
};

}  // namespace velmora::script
