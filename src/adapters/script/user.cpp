#include "velmora/adapters/script/user.h"

#include <string>

#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::script {

namespace {

using namespace screen;

constexpr char32_t backspaceCharacter = 8;
constexpr char32_t enterCharacter = 13;
constexpr char32_t escapeCharacter = 27;
constexpr char32_t firstPrinting = 32;

/// The character that a key brings to a field.
char32_t characterOf(Key key) {
    switch (key) {
        case Key::enter:
            return enterCharacter;
        case Key::escape:
            return escapeCharacter;
        case Key::comma:
            return U',';
        case Key::padDecimal:
            return U'.';
        default:
            return 0;
    }
}

Key keyOf(char32_t character) {
    switch (character) {
        case U'\n':
            return Key::enter;
        case U',':
            return Key::comma;
        default:
            return Key::character;
    }
}

bool isLocked(const Control& control) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    return box != nullptr && box->locked();
}

/// Chosen C-263: a locked field refuses the focus too, not only the entry: a script that means to enter something
/// must not go on as if it had.
bool refuses(const Control& control) {
    return !control.canTakeFocus() || isLocked(control) || control.form().isUnloaded();
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

/// The text of a field after one more character.
std::string withCharacter(std::string_view text, char32_t character, bool severalLines) {
    if (character == enterCharacter) {
        return std::string(text) + (severalLines ? "\r\n" : "");
    }
    return character < firstPrinting ? std::string(text) : std::string(text) + runtime::toUtf8(character);
}

void typeInto(TextBox& box, char32_t character) {
    KeyPress press{character};
    box.onKeyPress(press);
    const bool changes = press.character == backspaceCharacter || press.character >= firstPrinting ||
                         (press.character == enterCharacter && box.multiLine());
    if (!changes) {
        return;
    }
    const bool replaces = box.allSelected();
    // Typing the very text that was selected does not change it, and yet the selection is gone.
    box.clearSelection();
    if (press.character == backspaceCharacter) {
        box.setText(replaces ? std::string() : withoutLast(box.text()));
    } else {
        box.setText(withCharacter(replaces ? std::string_view{} : box.text(), press.character, box.multiLine()));
    }
}

void typeInto(ComboBox& list, char32_t character) {
    if (list.style() != ComboBox::Style::editable) {
        return;
    }
    list.setText(character == backspaceCharacter ? withoutLast(list.text())
                                                 : withCharacter(list.text(), character, false));
}

}  // namespace

bool User::focus(Control& control) {
    if (refuses(control)) {
        return false;
    }
    Form& form = control.form();
    bool arrived = false;
    // Chosen C-264: an error in LostFocus or GotFocus is shown and the deed goes on where it was going, as for a person
    // who has closed the error box.
    const bool quiet = journal_.guard([&] { arrived = form.moveFocus(control, Form::Insist::yes); });
    return quiet ? arrived : form.activeControl() == &control;
}

// Chosen C-265: no control is named, so that a SetFocus inside LostFocus wins as it does for a person.
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
        stroke(form, keyOf(character), character == U'\n' ? enterCharacter : character);
    }
    return true;
}

bool User::choose(ComboBox& list, int index) {
    // Chosen C-266: an entry, a row that is not there is refused; -1 chooses nothing, as code may.
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
    journal_.guard([&] { grid.onButtonClick(static_cast<int>(column)); });
    return true;
}

bool User::keyInGrid(DataGrid& grid, Key key) {
    if (refuses(grid)) {
        return false;
    }
    journal_.guard([&] {
        KeyDown down{grid.form().keyDown(key)};
        if (down.key != Key::none && !grid.form().isUnloaded()) {
            grid.onKeyDown(down);
        }
    });
    return true;
}

void User::key(Form& form, Key key) {
    stroke(form, key, characterOf(key));
}

void User::backspace(Form& form) {
    stroke(form, Key::character, backspaceCharacter);
}

void User::stroke(Form& form, Key key, char32_t character) {
    journal_.guard([&] {
        const Key become = form.keyDown(key);
        if (become != Key::none && !form.isUnloaded()) {
            deliver(form, become, become == key ? character : characterOf(become));
        }
    });
}

void User::deliver(Form& form, Key key, char32_t character) {
    if (key == Key::tab) {
        form.tabForward();
        return;
    }
    Control* active = form.activeControl();
    if (active == nullptr || refuses(*active)) {
        return;
    }
    if (auto* grid = dynamic_cast<DataGrid*>(active)) {
        KeyDown down{key};
        grid->onKeyDown(down);
    } else if (auto* button = dynamic_cast<Button*>(active); button != nullptr && key == Key::enter) {
        button->onClick();
    } else if (auto* box = dynamic_cast<TextBox*>(active); box != nullptr && character != 0) {
        typeInto(*box, character);
    } else if (auto* list = dynamic_cast<ComboBox*>(active); list != nullptr && character != 0) {
        typeInto(*list, character);
    }
}

}  // namespace velmora::script
