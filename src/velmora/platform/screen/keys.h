#pragma once
// Keys as a form sees them.

namespace velmora::screen {

enum class Key {
    none,
    character,  ///< any key that types one; KeyPress brings it
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
};

/// A key on its way: the form first, then the field. A handler turns it into another by writing `key`, or swallows
/// it by writing Key::none.
struct KeyDown {
    Key key = Key::none;
    bool shift = false;
};

/// A character on its way into a field; a handler changes it or swallows it by writing 0. Editing keys that reach
/// here as characters: 8 is backspace.
struct KeyPress {
    char32_t character = 0;
};

}  // namespace velmora::screen
