#pragma once
// A key of the toolkit as a form sees it.

#include <QKeyEvent>

#include "velmora/platform/screen/keys.h"

namespace velmora::qt {

struct KeyStroke {
    screen::Key key = screen::Key::none;  ///< none: a key that forms do not see (arrows, shortcuts)
    bool shift = false;
    char32_t character = 0;  ///< what it would type; 8 for the backspace
};

KeyStroke strokeOf(const QKeyEvent& event);

}  // namespace velmora::qt
