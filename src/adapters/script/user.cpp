#include "velmora/adapters/script/user.h"

#include <string>

#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/field_typing.h"
#include "velmora/platform/toolkit/key_routing.h"

namespace velmora::script {

namespace {

using namespace screen;

using toolkit::KeyStroke;

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

/// A field whose caret stands behind its text.
class EndOfText final : public toolkit::TextEditor {
  public:
    explicit EndOfText(TextBox& box) : box_(box), allSelected_(box.allSelected()) {}

    void insert(char32_t character) override { box_.setText(kept() + runtime::toUtf8(character)); }
    void breakLine() override { box_.setText(kept() + "\r\n"); }
    void erase() override { box_.setText(allSelected_ ? std::string() : withoutLast(box_.text())); }

  private:
    std::string kept() const { return allSelected_ ? std::string() : box_.text(); }

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
        stroke(form, toolkit::strokeTyping(character));
    }
    return true;
}

bool User::choose(ComboBox& list, int index) {
    // Chosen C-266: an entry, a row that is not there is refused; -1 chooses nothing, as code may.
    if (!focus(list) || index < -1 || index >= list.listCount()) {
        return false;
    }
    journal_.guard([&] { list.setListIndex(index); });
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
        toolkit::routeKey(grid.form(), toolkit::strokeOf(key), [&](const KeyStroke& stroke) {
            KeyDown down{stroke.key, stroke.shift};
            grid.onKeyDown(down);
            return true;
        });
    });
    return true;
}

void User::key(Form& form, Key key) {
    stroke(form, toolkit::strokeOf(key));
}

void User::backspace(Form& form) {
    stroke(form, toolkit::strokeTyping(toolkit::backspace));
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
        KeyDown down{stroke.key, stroke.shift};
        grid->onKeyDown(down);
    } else if (auto* button = dynamic_cast<Button*>(active); button != nullptr && stroke.key == Key::enter) {
        button->onClick();
    } else if (auto* box = dynamic_cast<TextBox*>(active)) {
        typeInto(*box, stroke.character);
    } else if (auto* list = dynamic_cast<ComboBox*>(active)) {
        typeInto(*list, stroke.character);
    }
}

}  // namespace velmora::script
