#pragma once
// Plays a script on the program: reads a command, does it, goes on inside the forms that open.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/script/answers.h"
#include "velmora/adapters/script/command.h"
#include "velmora/adapters/script/ending.h"
#include "velmora/adapters/script/journal.h"
#include "velmora/adapters/script/script_screen.h"
#include "velmora/adapters/script/shown_text.h"
#include "velmora/adapters/script/user.h"
#include "velmora/adapters/script/watched_connection.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::script {

/// The public operations by the names that a script calls them. A wrong number or kind of arguments is WrongScript.
struct Operations {
    using Arguments = std::vector<Argument>;
    /// `open`: what opens a form, and returns when it is closed.
    std::map<std::string, std::function<void(const Arguments&)>, std::less<>> open;
    /// `call`: the others; gives the line to print.
    std::map<std::string, std::function<std::string(const Arguments&)>, std::less<>> call;
};

class Interpreter {
  public:
    /// What a script plays on; all of it outlives the interpreter.
    struct Stage {
        Journal& journal;
        Answers& answers;
        ScriptScreen& screen;
        WatchedConnection& program;  ///< the connection that the program uses
        sql::Connection& engine;     ///< the same database for the script's own queries
        const Operations& operations;
    };

    using Tell = std::function<void(std::string_view reason)>;

    /// Takes over the screen's idle time. `tell` gets the reason, with its line, of a script that ends early.
    Interpreter(Stage stage, ScriptReader& reader, Tell tell);

    /// Plays to the end of the script. A wrong script and an open question go before failed checks.
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

    void expect(const Command& command);
    void expectState(const Command& command);
    void expectMessage(const Command& command);
    void expectQuery(const Command& command);

    screen::Form& top() const;
    /// The control of that name on the form on top, else on one beneath it.
    screen::Control& control(std::string_view name) const;
    State stateNamed(std::string_view name) const;
    /// Does the user's deed; a refusal ends the script unless the line was tried.
    void must(const Command& command, screen::Control& control, const std::function<bool()>& deed);
    void checked(const Command& command, bool holds, std::string_view found);

    Stage stage_;
    ScriptReader& reader_;
    Tell tell_;
    User user_;
    bool checkFailed_ = false;
};

}  // namespace velmora::script
