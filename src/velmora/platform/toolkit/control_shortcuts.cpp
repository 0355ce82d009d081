#include "velmora/platform/toolkit/control_shortcuts.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::toolkit {

namespace {

using screen::Control;
using screen::Key;

struct SecondName {
    char32_t letter;
    Key key;
    std::string_view named;  ///< as captions name the key
};

constexpr std::array secondNames{SecondName{.letter = U'S', .key = Key::f5, .named = "(F5)"},
                                 SecondName{.letter = U'P', .key = Key::f8, .named = "(F8)"},
                                 SecondName{.letter = U'F', .key = Key::f2, .named = "(F2)"}};

char32_t capital(char32_t letter) {
    return letter >= U'a' && letter <= U'z' ? letter - U'a' + U'A' : letter;
}

std::string captionOf(const Control& control) {
    const auto* captioned = dynamic_cast<const screen::Captioned*>(&control);
    return captioned != nullptr ? captioned->caption() : control.accessibleName();
}

}  // namespace

std::optional<Key> secondNameOf(const screen::Form& form, char32_t letter) {
    const auto* found = std::ranges::find(secondNames, capital(letter), &SecondName::letter);
    if (found == secondNames.end()) {
        return std::nullopt;
    }
    const bool named = std::ranges::any_of(form.controls(), [&](const Control* control) {
        return captionOf(*control).find(found->named) != std::string::npos;
    });
    return named ? std::optional(found->key) : std::nullopt;
}

screen::Button* buttonWithShortcut(const screen::Form& form, char32_t letter) {
    const std::string ending = "(Ctrl+" + runtime::toUtf8(capital(letter)) + ")";
    for (Control* control : form.controls()) {
        auto* button = dynamic_cast<screen::Button*>(control);
        if (button != nullptr && button->canTakeFocus() && button->caption().ends_with(ending)) {
            return button;
        }
    }
    return nullptr;
}

// Chosen C-351: Control and Enter reach the calculated fields, which Enter and Tab pass over, without the mouse.
void moveToEveryField(screen::Form& form, bool backward) {
    const auto& order = form.tabOrder();
    const int count = static_cast<int>(order.size());
    const auto here = std::ranges::find(order, form.activeControl());
    const int step = backward ? -1 : 1;
    const int start = here != order.end() ? static_cast<int>(here - order.begin()) : (backward ? count : -1);
    for (int walked = 1; walked <= count; ++walked) {
        Control& next = *order[static_cast<std::size_t>(((start + step * walked) % count + count) % count)];
        if (&next != form.activeControl() && next.canTakeFocus() && isSeen(next)) {
            form.moveFocus(next);
            return;
        }
    }
}

}  // namespace velmora::toolkit
