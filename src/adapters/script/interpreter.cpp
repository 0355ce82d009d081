#include "velmora/adapters/script/interpreter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::script {

namespace {

using namespace screen;

constexpr std::size_t any = static_cast<std::size_t>(-1);
/// The name under which a script reads the form on top itself.
constexpr std::string_view formName = "form";

[[noreturn]] void wrong(std::string_view what, std::string_view name) {
    throw WrongScript(std::string(what) + ": " + std::string(name));
}

template <typename Kind>
Kind& kindOf(Control& control, std::string_view kind) {
    auto* wanted = dynamic_cast<Kind*>(&control);
    if (wanted == nullptr) {
        wrong("no " + std::string(kind), control.fullName());
    }
    return *wanted;
}

std::size_t position(const Argument& argument) {
    const auto number = wholeNumber(argument.text);
    if (!number || *number < 0) {
        wrong("no position", argument.text);
    }
    return static_cast<std::size_t>(*number);
}

template <std::size_t count, typename Value>
Value valueNamed(const std::array<std::pair<std::string_view, Value>, count>& values, std::string_view name) {
    const auto found = std::ranges::find(values, name, &std::pair<std::string_view, Value>::first);
    if (found == values.end()) {
        wrong("nothing of that name is known here", name);
    }
    return found->second;
}

Key keyNamed(std::string_view name) {
    static constexpr auto keys = std::to_array<std::pair<std::string_view, Key>>({{"ENTER", Key::enter},
                                                                                  {"ESC", Key::escape},
                                                                                  {"TAB", Key::tab},
                                                                                  {"DECIMAL", Key::padDecimal},
                                                                                  {"F1", Key::f1},
                                                                                  {"F2", Key::f2},
                                                                                  {"F3", Key::f3},
                                                                                  {"F4", Key::f4},
                                                                                  {"F5", Key::f5},
                                                                                  {"F6", Key::f6},
                                                                                  {"F7", Key::f7},
                                                                                  {"F8", Key::f8},
                                                                                  {"F9", Key::f9}});
    return valueNamed(keys, name);
}

Answer answerNamed(std::string_view name) {
    static constexpr auto answers = std::to_array<std::pair<std::string_view, Answer>>(
        {{"yes", Answer::yes}, {"no", Answer::no}, {"cancel", Answer::cancel}, {"ok", Answer::ok}});
    return valueNamed(answers, name);
}

bool onOff(std::string_view text) {
    static constexpr auto states = std::to_array<std::pair<std::string_view, bool>>({{"on", true}, {"off", false}});
    return valueNamed(states, text);
}

/// The index of an entry. None: not in the list.
// Chosen C-261: a bare whole number is the index, everything else the text of an entry, so that "12" can be either.
std::optional<int> entryOf(const ComboBox& list, const Argument& entry) {
    if (const auto index = wholeNumber(entry.text); index && !entry.quoted) {
        return index;
    }
    const auto found = std::ranges::find(list.items(), entry.text);
    return found == list.items().end() ? std::nullopt : std::optional(static_cast<int>(found - list.items().begin()));
}

/// The column by 0-based index (a bare whole number) or caption; of two alike the first that a person can press.
std::size_t columnOf(const DataGrid& grid, const Argument& column) {
    const auto& columns = grid.columns();
    if (!column.quoted && wholeNumber(column.text)) {
        const std::size_t index = position(column);
        if (index >= columns.size()) {
            wrong("no such column", column.text);
        }
        return index;
    }
    const auto named = [&](const GridColumn& c) { return c.caption == column.text; };
    auto found = std::ranges::find_if(columns, [&](const GridColumn& c) { return named(c) && c.visible && c.button; });
    if (found == columns.end()) {
        found = std::ranges::find_if(columns, named);
    }
    if (found == columns.end()) {
        wrong("no such column", column.text);
    }
    return static_cast<std::size_t>(found - columns.begin());
}

bool hasMenuKey(const Toolbar& bar, std::string_view key) {
    return std::ranges::any_of(bar.items(), [&](const Toolbar::Item& item) {
        return std::ranges::find(item.menu, key, &Toolbar::MenuItem::key) != item.menu.end();
    });
}

bool hasButton(const Toolbar& bar, int index) {
    return index >= 1 && index <= static_cast<int>(bar.items().size()) &&
           !bar.items()[static_cast<std::size_t>(index - 1)].caption.empty();
}

/// "Toolbar1(FICHERO)" as name and what stands in the parentheses.
std::pair<std::string_view, std::string_view> withItem(std::string_view name) {
    const auto opening = name.find('(');
    if (opening == std::string_view::npos || name.back() != ')') {
        wrong("no open form has a control of that name", name);
    }
    return {name.substr(0, opening), name.substr(opening + 1, name.size() - opening - 2)};
}

Control* findOn(const std::vector<Form*>& forms, std::string_view name) {
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        if (Control* found = (*form)->find(name)) {
            return found;
        }
    }
    return nullptr;
}

/// One "enabled=0" of expect-state.
bool holds(const State& state, std::string_view wanted) {
    const auto equals = wanted.find('=');
    if (equals == std::string_view::npos) {
        wrong("no PROPERTY=VALUE", wanted);
    }
    const std::string_view property = wanted.substr(0, equals);
    const std::string_view value = wanted.substr(equals + 1);
    if (property == "text") {
        return withPlainBreaks(state.text) == withPlainBreaks(value);
    }
    const bool current =
        valueNamed(std::to_array<std::pair<std::string_view, bool>>(
                       {{"enabled", state.enabled}, {"visible", state.visible}, {"locked", state.locked}}),
                   property);
    return current == valueNamed(std::to_array<std::pair<std::string_view, bool>>({{"1", true}, {"0", false}}), value);
}

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
        {"focus", {1, 1, &I::focus}},
        {"leave", {0, 0, &I::leave}},
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
    const auto [least, most, deed] = found->second;
    const std::size_t count = command.arguments.size();
    if (count < least || count > most) {
        wrong("too few or too many values", command.name);
    }
    // A check that could not be made does not hold.
    const bool done = stage_.journal.guard([&] { (this->*deed)(command); });
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
    top().unload();
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

void Interpreter::set(const Command& command) {
    Control& target = control(command.arguments[0].text);
    const std::string& text = command.arguments[1].text;
    if (auto* list = dynamic_cast<ComboBox*>(&target); list && list->style() == ComboBox::Style::editable) {
        must(command, target, [&] { return user_.set(*list, text); });
        return;
    }
    auto& box = kindOf<TextBox>(target, "field of text");
    must(command, target, [&] { return user_.set(box, text); });
}

void Interpreter::type(const Command& command) {
    Control& target = control(command.arguments[0].text);
    if (dynamic_cast<ComboBox*>(&target) == nullptr) {
        kindOf<TextBox>(target, "field of text");
    }
    must(command, target, [&] { return user_.type(target, command.arguments[1].text); });
}

void Interpreter::focus(const Command& command) {
    Control& target = control(command.arguments[0].text);
    must(command, target, [&] { return user_.focus(target); });
}

void Interpreter::leave(const Command&) {
    user_.leave(top());
}

void Interpreter::choose(const Command& command) {
    auto& list = kindOf<ComboBox>(control(command.arguments[0].text), "list");
    const Argument& wanted = command.arguments[1];
    must(command, list, [&] {
        // Coming here may fill the list anew: the entry is looked up once the focus has arrived.
        const std::optional<int> entry = user_.focus(list) ? entryOf(list, wanted) : std::nullopt;
        return entry && user_.choose(list, *entry);
    });
}

void Interpreter::check(const Command& command) {
    auto& box = kindOf<CheckBox>(control(command.arguments[0].text), "check box");
    const bool wanted = onOff(command.arguments[1].text);
    must(command, box, [&] { return user_.check(box, wanted); });
}

void Interpreter::press(const Command& command) {
    const std::string& name = command.arguments[0].text;
    if (Control* target = findOn(stage_.screen.forms(), name)) {
        auto& button = kindOf<Button>(*target, "button");
        must(command, button, [&] { return user_.press(button); });
        return;
    }
    const auto [barName, item] = withItem(name);
    auto& bar = kindOf<Toolbar>(control(barName), "bar of buttons");
    if (const auto index = wholeNumber(item)) {
        if (!hasButton(bar, *index)) {
            wrong("the bar has no such button", name);
        }
        must(command, bar, [&] { return user_.press(bar, *index); });
        return;
    }
    if (!hasMenuKey(bar, item)) {
        wrong("the bar has no such menu item", name);
    }
    must(command, bar, [&, key = item] { return user_.press(bar, key); });
}

void Interpreter::key(const Command& command) {
    const std::string& name = command.arguments[0].text;
    if (name == "BACKSPACE") {
        user_.backspace(top());
        return;
    }
    user_.key(top(), keyNamed(name));
}

void Interpreter::row(const Command& command) {
    auto& grid = kindOf<DataGrid>(control(command.arguments[0].text), "grid");
    const std::size_t row = position(command.arguments[1]);
    must(command, grid, [&] { return user_.moveToRow(grid, row); });
}

void Interpreter::cell(const Command& command) {
    auto& grid = kindOf<DataGrid>(control(command.arguments[0].text), "grid");
    const std::size_t column = columnOf(grid, command.arguments[1]);
    if (!grid.columns()[column].button) {
        wrong("the column has no buttons", command.arguments[1].text);
    }
    must(command, grid, [&] { return user_.pressCell(grid, column); });
}

// Chosen C-262: like `key`, and unlike the other deeds, it leaves the focus where it is.
void Interpreter::gridKey(const Command& command) {
    auto& grid = kindOf<DataGrid>(control(command.arguments[0].text), "grid");
    const Key wanted = keyNamed(command.arguments[1].text);
    must(command, grid, [&] { return user_.keyInGrid(grid, wanted); });
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

void Interpreter::print(const Command& command) {
    for (const Argument& name : command.arguments) {
        stage_.journal.line(name.text == formName ? "form = " + inQuotes(top().caption())
                                                  : printed(control(name.text)));
    }
}

void Interpreter::state(const Command& command) {
    for (const Argument& name : command.arguments) {
        stage_.journal.line(printed(stateNamed(name.text)));
    }
}

void Interpreter::dump(const Command&) {
    for (const Control* each : top().controls()) {
        stage_.journal.line(printed(stateOf(*each)));
    }
}

void Interpreter::rows(const Command& command) {
    const auto& grid = kindOf<DataGrid>(control(command.arguments[0].text), "grid");
    stage_.journal.lines(tableOf(grid));
}

void Interpreter::query(const Command& command) {
    sql::Recordset found = stage_.engine.execute(command.arguments[0].text);
    if (!found.isOpen()) {
        return;
    }
    stage_.journal.line(headingOf(found));
    if (!found.eof()) {
        stage_.journal.line(rowsOf(found));
    }
}

void Interpreter::expect(const Command& command) {
    const std::string& name = command.arguments[0].text;
    const Argument& wanted = command.arguments[1];
    if (name == formName) {
        checked(command, top().caption() == wanted.text, "form = " + inQuotes(top().caption()));
        return;
    }
    const Control& target = control(name);
    const auto* list = dynamic_cast<const ComboBox*>(&target);
    const bool byIndex = list != nullptr && !wanted.quoted && wholeNumber(wanted.text);
    const bool matches = byIndex ? list->listIndex() == *wholeNumber(wanted.text)
                                 : withPlainBreaks(textOf(target)) == withPlainBreaks(wanted.text);
    checked(command, matches, printed(target));
}

void Interpreter::expectState(const Command& command) {
    const State found = stateNamed(command.arguments[0].text);
    const bool matches = std::all_of(command.arguments.begin() + 1, command.arguments.end(),
                                     [&](const Argument& wanted) { return holds(found, wanted.text); });
    checked(command, matches, printed(found));
}

void Interpreter::expectMessage(const Command& command) {
    checked(command, stage_.journal.takeMessage(command.arguments[0].text),
            "last message " + inQuotes(stage_.journal.lastMessage()));
}

void Interpreter::expectQuery(const Command& command) {
    sql::Recordset set = stage_.engine.execute(command.arguments[0].text);
    const std::string found = set.isOpen() ? rowsOf(set) : std::string();
    checked(command, withPlainBreaks(found) == withPlainBreaks(command.arguments[1].text),
            "query = " + inQuotes(found));
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

void Interpreter::must(const Command& command, Control& control, const std::function<bool()>& deed) {
    // Chosen C-260: the controls of a form beneath another can be read and refuse every deed, as with any modal window.
    const std::string& name = command.arguments[0].text;
    if (&control.form() == &top() && deed()) {
        return;
    }
    stage_.journal.line("error refused " + name);
    if (!command.tried) {
        throw Ending(Status::wrong, "refused: " + name);
    }
}

void Interpreter::checked(const Command& command, bool holds, std::string_view found) {
    if (holds) {
        return;
    }
    checkFailed_ = true;
    std::string line = "failed line=" + runtime::CStr(std::int64_t{command.line}) + " " + std::string(found);
    const bool query = command.name == "expect-query";
    const bool message = command.name == "expect-message";
    line += " expected";
    for (std::size_t i = message ? 0 : 1; i < command.arguments.size(); ++i) {
        line.append(" ").append(query || message || command.name == "expect" ? inQuotes(command.arguments[i].text)
                                                                             : command.arguments[i].text);
    }
    stage_.journal.line(line);
}

}  // namespace velmora::script
