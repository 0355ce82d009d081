#include "velmora/platform/toolkit/field_typing.h"

namespace velmora::toolkit {

char32_t typeInto(screen::TextBox& box, char32_t character, TextEditor& editor) {
    if (character == 0) {
        return 0;
    }
    // Chosen C-301: Enter and Esc that the form has let through are characters 13 and 27 to the field's KeyPress.
    screen::KeyPress press{character};
    box.onKeyPress(press);
    const bool breaksLine = press.character == carriageReturn && box.multiLine();
    if (box.locked() || !(breaksLine || editsText(press.character))) {
        return press.character;
    }
    // Typing the very text that was selected does not change it, and yet the selection is gone.
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
