#pragma once
// Keys as they reach a form.

namespace velmora::screen {

enum class Key {
    none,
    character,  ///< any key that types a character; KeyPress delivers it
    enter,
    escape,
    tab,
    padDecimal,  ///< the decimal point of the numeric pad
    comma,
    f1,
    f2,
    f3,
    f4,
    f5,
    f6,
    f7,
    f8,
    f9,
    f12,
};

/// A key that is being handled: by the form first, then by the field. A handler replaces it by setting `key` and
/// discards it with Key::none.
struct KeyDown {
    Key key = Key::none;
    bool shift = false;
};

/// A character on its way into a field; a handler replaces it, or discards it with 0. Backspace arrives here too, as
/// character 8.
struct KeyPress {
    char32_t character = 0;
};

}  // namespace velmora::screen
