#include "velmora/adapters/script/user.h"

#include <string>

#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/control_keys.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/field_typing.h"
#include "velmora/platform/toolkit/key_routing.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::script {

namespace {

using namespace screen;

using toolkit::KeyStroke;

bool isLocked(const Control& control) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    return box != nullptr && box->locked();
}

/// Chosen C-263: a locked field refuses the focus as well as the entry: otherwise a script that means to enter a value
/// would continue as if it had. Chosen C-302: a control in a shared place where another child is shown is not on the
/// screen and refuses likewise.
bool refuses(const Control& control) {
    return !control.canTakeFocus() || !toolkit::isSeen(control) || isLocked(control) || control.form().isUnloaded();
}

std::string withoutLast(std::string_view text) {
    if (text.ends_with("\r\n")) {
        return std::string(text.substr(0, text.size() - 2));
    }
    std::u32string characters = runtime::toCodePoints(text);
    if (!characters.empty()) {
        characters.pop_back();
    }
    return runtime::toUtf8(characters);
}

/// A field whose caret is at the end of its text.
class EndOfText final : public toolkit::TextEditor {
  public:
    explicit EndOfText(TextBox& box) : box_(box), allSelected_(box.allSelected()) {}

    void insert(char32_t character) override { box_.setText(kept() + runtime::toUtf8(character)); }
    void breakLine() override { box_.setText(kept() + "\r\n"); }
    void erase() override { box_.setText(allSelected_ ? std::string() : withoutLast(box_.text())); }
    std::string kept() const { return allSelected_ ? std::string() : box_.text(); }

  private:
    TextBox& box_;
    bool allSelected_;
};

void typeInto(TextBox& box, char32_t character) {
    EndOfText editor(box);
    toolkit::typeInto(box, character, editor);
}

void typeInto(ComboBox& list, char32_t character) {
    if (list.style() == ComboBox::Style::editable && toolkit::editsText(character)) {
        list.setText(character == toolkit::backspace ? withoutLast(list.text())
                                                     : list.text() + runtime::toUtf8(character));
    }
}

bool opensMenu(const Toolbar& bar, int item) {
    return !bar.items()[static_cast<std::size_t>(item - 1)].menu.empty();
}

}  // namespace

bool User::focus(Control& control) {
    if (refuses(control)) {
        return false;
    }
    Form& form = control.form();
    bool arrived = false;
    // Chosen C-264: an error in LostFocus or GotFocus is shown and the action continues, as for a person who has closed
    // the error box.
    const bool quiet = journal_.guard([&] { arrived = form.moveFocus(control, Form::Insist::yes); });
    return quiet ? arrived : form.activeControl() == &control;
}

// Chosen C-265: no target control is named, so a SetFocus inside LostFocus wins, as it does for a person.
void User::leave(Form& form) {
    journal_.guard([&] { form.leaveFocus(); });
}

bool User::set(TextBox& box, std::string_view text) {
    if (!focus(box)) {
        return false;
    }
    const std::string entered =
        box.multiLine() ? runtime::Replace(withPlainBreaks(text), "\n", "\r\n") : std::string(text);
    journal_.guard([&] { box.setText(entered); });
    return true;
}

bool User::set(ComboBox& list, std::string_view text) {
    if (!focus(list)) {
        return false;
    }
    journal_.guard([&] { list.setText(text); });
    return true;
}

bool User::type(Control& control, std::string_view text) {
    if (!focus(control)) {
        return false;
    }
    Form& form = control.form();
    for (const char32_t character : runtime::toCodePoints(withPlainBreaks(text))) {
        stroke(form, toolkit::strokeTyping(character));
    }
    return true;
}

bool User::paste(TextBox& box, std::string_view text) {
    if (!focus(box)) {
        return false;
    }
    journal_.guard([&] {
        const std::string kept = EndOfText(box).kept();
        if (const auto taken = toolkit::filterInsertion(box, {.before = kept, .text = text, .after = ""})) {
            box.setText(kept + *taken);
        }
    });
    return true;
}

bool User::choose(ComboBox& list, int index) {
    // Chosen C-266: a nonexistent entry or row is refused; -1 selects nothing, as code may do.
    if (!focus(list) || index < -1 || index >= list.listCount()) {
        return false;
    }
    journal_.guard([&] { list.choose(index); });
    return true;
}

bool User::doubleClick(TextBox& box) {
    if (!focus(box)) {
        return false;
    }
    journal_.guard([&] { box.onDblClick(); });
    return true;
}

bool User::check(CheckBox& box, bool checked) {
    if (!focus(box)) {
        return false;
    }
    journal_.guard([&] { box.setChecked(checked); });
    return true;
}

bool User::press(Button& button) {
    if (!focus(button)) {
        return false;
    }
    journal_.guard([&] { button.onClick(); });
    return true;
}

bool User::press(Toolbar& bar, int index) {
    if (!focus(bar)) {
        return false;
    }
    journal_.guard([&] { bar.onButtonClick(index); });
    return true;
}

bool User::press(Toolbar& bar, std::string_view menuKey) {
    if (!focus(bar)) {
        return false;
    }
    journal_.guard([&] { bar.onMenuClick(std::string(menuKey)); });
    return true;
}

bool User::moveToRow(DataGrid& grid, std::size_t row) {
    if (!focus(grid) || row >= grid.rowCount()) {
        return false;
    }
    journal_.guard([&] { grid.moveToRow(row); });
    return true;
}

bool User::pressCell(DataGrid& grid, std::size_t column) {
    if (!focus(grid) || grid.rowCount() == 0 || column >= grid.columns().size() || !grid.columns()[column].visible) {
        return false;
    }
    journal_.guard([&] { toolkit::pressCell(grid, column); });
    return true;
}

bool User::moveRow(DataGrid& grid, toolkit::RowMove move) {
    if (refuses(grid)) {
        return false;
    }
    journal_.guard([&] { toolkit::moveRow(grid, move); });
    return true;
}

void User::pressMnemonic(Form& form, char32_t letter) {
    const std::optional<toolkit::MnemonicTarget> target = toolkit::targetOf(form, letter);
    if (!target) {
        return;
    }
    if (target->button != nullptr) {
        press(*target->button);
    } else if (!opensMenu(*target->bar, target->item)) {
        press(*target->bar, target->item);
    }
}

bool User::keyInGrid(DataGrid& grid, const KeyStroke& stroke) {
    if (refuses(grid)) {
        return false;
    }
    journal_.guard([&] {
        toolkit::routeKey(grid.form(), stroke, [&](const KeyStroke& turned) {
            toolkit::keyInGrid(grid, turned, std::nullopt);
            return true;
        });
    });
    return true;
}

void User::stroke(Form& form, const KeyStroke& stroke) {
    journal_.guard([&] {
        toolkit::routeKey(form, stroke, [&](const KeyStroke& turned) {
            deliver(form, turned);
            return true;
        });
    });
}

void User::deliver(Form& form, const KeyStroke& stroke) {
    Control* active = form.activeControl();
    if (active == nullptr || !active->canTakeFocus()) {
        return;
    }
    if (auto* grid = dynamic_cast<DataGrid*>(active)) {
        toolkit::keyInGrid(*grid, stroke, std::nullopt);
    } else if (auto* button = dynamic_cast<Button*>(active); button != nullptr && toolkit::pressesButton(stroke)) {
        button->onClick();
    } else if (auto* check = dynamic_cast<CheckBox*>(active); check != nullptr && toolkit::ticksBox(stroke)) {
        check->setChecked(!check->checked());
    } else if (auto* box = dynamic_cast<TextBox*>(active)) {
        typeInto(*box, stroke.character);
    } else if (auto* list = dynamic_cast<ComboBox*>(active)) {
        typeInto(*list, stroke.character);
    }
}

}  // namespace velmora::script
