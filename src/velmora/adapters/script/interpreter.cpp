#include "velmora/adapters/script/interpreter.h"

#include <cstdint>
#include <utility>

#include "velmora/adapters/script/vocabulary.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/close_request.h"

namespace velmora::script {

using namespace screen;

namespace {

constexpr std::size_t any = static_cast<std::size_t>(-1);

}  // namespace

Interpreter::Interpreter(Stage stage, ScriptReader& reader, Tell tell)
    : stage_(stage), reader_(reader), tell_(std::move(tell)), user_(stage.journal) {
    stage_.screen.onIdle([this] { return playNext(); });
}

const std::map<std::string_view, Interpreter::Entry>& Interpreter::table() {
    using I = Interpreter;
    static const std::map<std::string_view, Entry> commands{
        {"open", {1, any, &I::open}},
        {"close", {0, 0, &I::close}},
        {"call", {1, any, &I::call}},
        {"echo", {0, any, &I::echo}},
        {"set", {2, 2, &I::set}},
        {"type", {2, 2, &I::type}},
        {"paste", {2, 2, &I::paste}},
        {"focus", {1, 1, &I::focus}},
        {"leave", {0, 0, &I::leave}},
        {"dblclick", {1, 1, &I::doubleClick}},
        {"choose", {2, 2, &I::choose}},
        {"check", {2, 2, &I::check}},
        {"press", {1, 1, &I::press}},
        {"key", {1, 1, &I::key}},
        {"row", {2, 2, &I::row}},
        {"cell", {2, 2, &I::cell}},
        {"gridkey", {2, 2, &I::gridKey}},
        {"answer", {1, 1, &I::answer}},
        {"pick", {1, 1, &I::pick}},
        {"file", {1, 1, &I::file}},
        {"fail", {1, 1, &I::fail}},
        {"lose", {1, 1, &I::lose}},
        {"print", {1, any, &I::print}},
        {"state", {1, any, &I::state}},
        {"dump", {0, 0, &I::dump}},
        {"rows", {1, 1, &I::rows}},
        {"query", {1, 1, &I::query}},
        {"status", {0, 0, &I::status}},
        {"expect-status", {1, any, &I::expectStatus}},
        {"expect", {2, 2, &I::expect}},
        {"expect-state", {2, any, &I::expectState}},
        {"expect-message", {1, 1, &I::expectMessage}},
        {"expect-query", {2, 2, &I::expectQuery}},
    };
    return commands;
}

Status Interpreter::run() {
    try {
        while (playNext()) {
        }
    } catch (const Ending& ending) {
        tell_("line " + runtime::CStr(std::int64_t{reader_.line()}) + ": " + ending.what());
        return ending.status();
    }
    return checkFailed_ ? Status::checkFailed : Status::ok;
}

bool Interpreter::playNext() {
    try {
        const std::optional<Command> command = reader_.next();
        if (!command) {
            return false;
        }
        play(*command);
        return true;
    } catch (const WrongScript& fault) {
        throw Ending(Status::wrong, fault.what());
    }
}

void Interpreter::play(const Command& command) {
    const auto found = table().find(command.name);
    if (found == table().end()) {
        wrong("no such command", command.name);
    }
    const Entry& entry = found->second;
    const std::size_t count = command.arguments.size();
    if (count < entry.least || count > entry.most) {
        wrong("too few or too many values", command.name);
    }
    // A check that could not be evaluated counts as failed.
    const bool done = stage_.journal.guard([&] { (this->*entry.play)(command); });
    checkFailed_ = checkFailed_ || (!done && command.name.starts_with("expect"));
}

void Interpreter::open(const Command& command) {
    const auto found = stage_.operations.open.find(command.arguments[0].text);
    if (found == stage_.operations.open.end()) {
        wrong("nothing of that name can be opened", command.arguments[0].text);
    }
    const Operations::Arguments rest(command.arguments.begin() + 1, command.arguments.end());
    found->second(rest);
}

void Interpreter::close(const Command&) {
    screen::requestClose(top());
}

void Interpreter::call(const Command& command) {
    const auto found = stage_.operations.call.find(command.arguments[0].text);
    if (found == stage_.operations.call.end()) {
        wrong("nothing of that name can be called", command.arguments[0].text);
    }
    const Operations::Arguments rest(command.arguments.begin() + 1, command.arguments.end());
    stage_.journal.line(found->second(rest));
}

void Interpreter::echo(const Command& command) {
    std::string text;
    for (const Argument& argument : command.arguments) {
        text.append(text.empty() ? "" : " ").append(argument.text);
    }
    stage_.journal.line(text);
}

void Interpreter::answer(const Command& command) {
    stage_.answers.boxes.push_back(answerNamed(command.arguments[0].text));
}

void Interpreter::pick(const Command& command) {
    const Argument& row = command.arguments[0];
    stage_.answers.searches.push_back(row.text == "none" ? std::nullopt : std::optional(position(row)));
}

void Interpreter::file(const Command& command) {
    const Argument& path = command.arguments[0];
    stage_.answers.files.push_back(path.text == "none" && !path.quoted ? std::nullopt : std::optional(path.text));
}

void Interpreter::fail(const Command& command) {
    stage_.program.refuseNext(command.arguments[0].text);
}

void Interpreter::lose(const Command& command) {
    if (command.arguments[0].text != "connection") {
        wrong("only the connection can be lost", command.arguments[0].text);
    }
    stage_.program.lose();
}

Form& Interpreter::top() const {
    if (stage_.screen.forms().empty()) {
        throw WrongScript("no form is open");
    }
    return *stage_.screen.forms().back();
}

Control& Interpreter::control(std::string_view name) const {
    Control* found = findOn(stage_.screen.forms(), name);
    if (found == nullptr) {
        wrong("no open form has a control of that name", name);
    }
    return *found;
}

State Interpreter::stateNamed(std::string_view name) const {
    return name == formName ? stateOf(top()) : stateOf(control(name));
}

void Interpreter::must(const Command& command, Control& control, const std::function<bool()>& action) {
    // Chosen C-260: controls of a form beneath another can be read but refuse every action, as with any modal window.
    beginAction();
    const std::string& name = command.arguments[0].text;
    if (&control.form() == &top() && action()) {
        return;
    }
    stage_.journal.line("error refused " + name);
    if (!command.tried) {
        throw Ending(Status::wrong, "refused: " + name);
    }
}

}  // namespace velmora::script
