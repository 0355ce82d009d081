#pragma once
// The buttons of a message box and the keys that press them.

#include <string_view>
#include <vector>

#include "velmora/platform/screen/screen.h"

namespace velmora::toolkit {

/// The title of a box that brings none.
inline constexpr std::string_view programTitle = "VELMORA";

struct Choice {
    screen::Answer answer;
    std::string_view caption;  ///< "&" before the letter that presses the button, with Alt or without
};

/// From left to right; never empty. Enter presses the box's default button, Esc the last one.
std::vector<Choice> choicesOf(screen::Buttons buttons);

/// What Esc, or closing the window, answers.
screen::Answer answerOfEscape(screen::Buttons buttons);

/// Whether the box has a button for the answer.
bool offers(screen::Buttons buttons, screen::Answer answer);

}  // namespace velmora::toolkit
