#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

using screen::Key;

char32_t characterOf(Key key) {
    switch (key) {
        case Key::enter:
            return carriageReturn;
        case Key::escape:
            return escape;
        case Key::comma:
            return U',';
        case Key::padDecimal:
            return U'.';
        default:
            return 0;
    }
}

KeyStroke strokeOf(Key key, bool shift) {
    return {.key = key, .shift = shift, .character = characterOf(key)};
}

KeyStroke strokeTyping(char32_t character, bool shift) {
    switch (character) {
        case U'\n':
        case carriageReturn:
            return strokeOf(Key::enter, shift);
        case U',':
            return strokeOf(Key::comma, shift);
        default:
            return {.key = Key::character, .shift = shift, .character = character};
    }
}

}  // namespace velmora::toolkit
