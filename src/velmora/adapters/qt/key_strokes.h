#pragma once
// A key of the toolkit as a form sees it.

#include <QKeyEvent>

#include "velmora/platform/screen/keys.h"

namespace velmora::qt {

inline constexpr char32_t backspace = 8;

struct KeyStroke {
    screen::Key key = screen::Key::none;  ///< none: a key that forms do not see (arrows, shortcuts)
    bool shift = false;
    char32_t character = 0;  ///< what it would type; `backspace` for that key
};

KeyStroke strokeOf(const QKeyEvent& event);

}  // namespace velmora::qt
