// Commands that act as the user.

#include <optional>
#include <string>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/adapters/script/vocabulary.h"

namespace velmora::script {

using namespace screen;

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

void Interpreter::paste(const Command& command) {
    auto& box = kindOf<TextBox>(control(command.arguments[0].text), "field of text");
    must(command, box, [&] { return user_.paste(box, command.arguments[1].text); });
}

void Interpreter::beginAction() {
    top().status().clearNote();
}

void Interpreter::focus(const Command& command) {
    Control& target = control(command.arguments[0].text);
    must(command, target, [&] { return user_.focus(target); });
}

void Interpreter::leave(const Command&) {
    beginAction();
    user_.leave(top());
}

void Interpreter::doubleClick(const Command& command) {
    auto& box = kindOf<TextBox>(control(command.arguments[0].text), "field of text");
    must(command, box, [&] { return user_.doubleClick(box); });
}

void Interpreter::choose(const Command& command) {
    auto& list = kindOf<ComboBox>(control(command.arguments[0].text), "list");
    const Argument& wanted = command.arguments[1];
    must(command, list, [&] {
        // Receiving the focus may refill the list, so the entry is looked up afterwards.
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
    beginAction();
    const std::string& name = command.arguments[0].text;
    if (const auto letter = letterWithAlt(name)) {
        user_.pressMnemonic(top(), *letter);
    } else if (const auto move = rowMoveNamed(name)) {
        if (auto* grid = dynamic_cast<DataGrid*>(top().activeControl())) {
            user_.moveRow(*grid, *move);
        }
    } else {
        user_.stroke(top(), strokeNamed(name));
    }
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

// Chosen C-262: like `key`, and unlike the other actions, it leaves the focus where it is.
void Interpreter::gridKey(const Command& command) {
    auto& grid = kindOf<DataGrid>(control(command.arguments[0].text), "grid");
    const std::string& name = command.arguments[1].text;
    if (const auto move = rowMoveNamed(name)) {
        must(command, grid, [&] { return user_.moveRow(grid, *move); });
        return;
    }
    const toolkit::KeyStroke wanted = strokeNamed(name);
    must(command, grid, [&] { return user_.keyInGrid(grid, wanted); });
}

}  // namespace velmora::script
