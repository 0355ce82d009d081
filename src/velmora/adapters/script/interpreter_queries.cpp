// Commands that print or check what the user sees.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/adapters/script/vocabulary.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/toolkit/status_text.h"

namespace velmora::script {

using namespace screen;

namespace {

/// Evaluates one "enabled=0" of expect-state.
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

std::string printedStatus(const Form& form) {
    const toolkit::StatusText text = toolkit::statusTextOf(form);
    return "status state=" + inQuotes(text.state) + " message=" + inQuotes(text.message) +
           " deed=" + inQuotes(text.deed);
}

}  // namespace

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

void Interpreter::status(const Command&) {
    stage_.journal.line(printedStatus(top()));
}

void Interpreter::expectStatus(const Command& command) {
    const toolkit::StatusText found = toolkit::statusTextOf(top());
    const bool matches = std::ranges::all_of(command.arguments, [&](const Argument& wanted) {
        const std::size_t equals = wanted.text.find('=');
        if (equals == std::string::npos) {
            wrong("no PART=TEXT", wanted.text);
        }
        return wanted.text.substr(equals + 1) ==
               valueNamed(std::to_array<std::pair<std::string_view, std::string>>(
                              {{"state", found.state}, {"message", found.message}, {"deed", found.deed}}),
                          std::string_view(wanted.text).substr(0, equals));
    });
    checked(command, matches, printedStatus(top()));
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

void Interpreter::checked(const Command& command, bool holds, std::string_view found) {
    if (holds) {
        return;
    }
    checkFailed_ = true;
    std::string line = "failed line=" + runtime::CStr(std::int64_t{command.line}) + " " + std::string(found);
    const bool query = command.name == "expect-query";
    const bool message = command.name == "expect-message";
    line += " expected";
    const bool status = command.name == "expect-status";
    for (std::size_t i = message || status ? 0 : 1; i < command.arguments.size(); ++i) {
        line.append(" ").append(query || message || command.name == "expect" ? inQuotes(command.arguments[i].text)
                                                                             : command.arguments[i].text);
    }
    stage_.journal.line(line);
}

}  // namespace velmora::script
