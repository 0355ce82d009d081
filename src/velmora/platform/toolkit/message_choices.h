#pragma once
// The buttons of a message box and the keys that press them.

#include <string_view>
#include <vector>

#include "velmora/platform/screen/screen.h"

namespace velmora::toolkit {

/// The title of a box without a title of its own.
inline constexpr std::string_view programTitle = "VELMORA";

struct Choice {
    screen::Answer answer;
    std::string_view caption;  ///< "&" marks the letter that presses the button, with or without Alt
};

/// From left to right; never empty. Enter presses the default button of the box, Esc the last one.
std::vector<Choice> choicesOf(screen::Buttons buttons);

/// The answer when Esc is pressed or the window is closed.
screen::Answer answerOfEscape(screen::Buttons buttons);

/// Whether the box has a button for the answer.
bool offers(screen::Buttons buttons, screen::Answer answer);

}  // namespace velmora::toolkit
