#pragma once
// A key as a toolkit hands it over: which key it is to the form, and which character it brings to a field.

#include "velmora/platform/screen/keys.h"

namespace velmora::toolkit {

/// Characters that are no text of their own. A field's KeyPress sees them like any other.
inline constexpr char32_t backspace = 8;
inline constexpr char32_t carriageReturn = 13;
inline constexpr char32_t escape = 27;
/// The first character that is text.
inline constexpr char32_t firstPrinting = 32;

struct KeyStroke {
    screen::Key key = screen::Key::none;  ///< none: a key that forms do not see (arrows, shortcuts)
    bool shift = false;
    char32_t character = 0;  ///< 0: the key brings none
};

/// The character that a key brings when its keyboard has not given it another one: Enter 13, Esc 27, the comma key a
/// comma, the pad's decimal key a point; 0 for all other keys.
char32_t characterOf(screen::Key key);

/// A key that is told by its name, with the character that it brings.
KeyStroke strokeOf(screen::Key key, bool shift = false);

/// The key that types a character: a comma is the comma key to the form, a line break (10 or 13) is Enter.
KeyStroke strokeTyping(char32_t character, bool shift = false);

/// Whether a character changes the text of a field of one line: text, or backspace.
constexpr bool editsText(char32_t character) {
    return character >= firstPrinting || character == backspace;
}

}  // namespace velmora::toolkit
