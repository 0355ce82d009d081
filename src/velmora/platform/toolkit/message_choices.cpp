#include "velmora/platform/toolkit/message_choices.h"

#include <algorithm>

namespace velmora::toolkit {

using screen::Answer;
using screen::Buttons;

namespace {

constexpr Choice ok{.answer = Answer::ok, .caption = "&Aceptar"};
constexpr Choice yes{.answer = Answer::yes, .caption = "&Sí"};
constexpr Choice no{.answer = Answer::no, .caption = "&No"};
constexpr Choice cancel{.answer = Answer::cancel, .caption = "&Cancelar"};

}  // namespace

std::vector<Choice> choicesOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::yesNo:
            return {yes, no};
        case Buttons::yesNoCancel:
            return {yes, no, cancel};
        case Buttons::ok:
            break;
    }
    return {ok};
}

// Chosen C-240: Esc presses the last button, which is the one without consequences: OK, No or Cancel. Without this rule
// a box with Yes and No could not be closed with Esc.
Answer answerOfEscape(Buttons buttons) {
    return choicesOf(buttons).back().answer;
}

bool offers(Buttons buttons, Answer answer) {
    const std::vector<Choice> choices = choicesOf(buttons);
    return std::ranges::find(choices, answer, &Choice::answer) != choices.end();
}

}  // namespace velmora::toolkit
