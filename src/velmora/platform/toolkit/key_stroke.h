#pragma once
// A key as delivered by a toolkit: the key that the form sees and the character that a field receives.

#include "velmora/platform/screen/keys.h"

namespace velmora::toolkit {

/// Characters that are not text. A field's KeyPress receives them like any other.
inline constexpr char32_t backspace = 8;
inline constexpr char32_t carriageReturn = 13;
inline constexpr char32_t escape = 27;
/// The first character that is text; lower ones are control characters.
inline constexpr char32_t firstPrinting = 32;

struct KeyStroke {
    screen::Key key = screen::Key::none;  ///< none: a key that forms do not see (arrows, shortcuts)
    bool shift = false;
    char32_t character = 0;  ///< 0: the key has no character
    bool control = false;    ///< Control is held (not AltGr); the form does not see such a key
};

/// The default character of a key, used when the keyboard layout gives no other: Enter 13, Esc 27, the comma key a
/// comma, the decimal key of the pad a point; 0 for all other keys.
char32_t characterOf(screen::Key key);

/// A key given by name, with its default character.
KeyStroke strokeOf(screen::Key key, bool shift = false);

/// The key that types a character: a comma is the comma key to the form, a line break (10 or 13) is Enter.
KeyStroke strokeTyping(char32_t character, bool shift = false);

/// Whether a character changes the text of a one-line field: printable characters and backspace.
constexpr bool editsText(char32_t character) {
    return character >= firstPrinting || character == backspace;
}

}  // namespace velmora::toolkit
