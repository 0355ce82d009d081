#include "velmora/platform/toolkit/field_typing.h"

namespace velmora::toolkit {

char32_t typeInto(screen::TextBox& box, char32_t character, TextEditor& editor) {
    if (character == 0) {
        return 0;
    }
    // Chosen C-301: Enter and Esc reach the field's KeyPress as characters 13 and 27 when the form has let them
    // through.
    screen::KeyPress press{character};
    box.onKeyPress(press);
    const bool breaksLine = press.character == carriageReturn && box.multiLine();
    if (box.locked() || !(breaksLine || editsText(press.character))) {
        return press.character;
    }
    // Typing the selected text again raises no Change but must clear the selection.
    box.clearSelection();
    if (breaksLine) {
        editor.breakLine();
    } else if (press.character == backspace) {
        editor.erase();
    } else {
        editor.insert(press.character);
    }
    return press.character;
}

}  // namespace velmora::toolkit
