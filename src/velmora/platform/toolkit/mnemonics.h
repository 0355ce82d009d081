#pragma once
// The letters that press buttons together with Alt.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// The letter behind the first "&" of a caption, as a capital; 0 when none is marked. "&&" stands for a plain "&".
char32_t mnemonicOf(std::string_view caption);

/// The captions of a bar's items, a separator's empty. One that marks no letter gets its first letter that no item
/// before it got in this way: the bar takes the focus as a whole, and its buttons are reached by Alt.
std::vector<std::string> captionsOf(const screen::Toolbar& bar);

/// What Alt and a letter press: a button, or the item of a bar, counted from 1.
struct MnemonicTarget {
    screen::Button* button = nullptr;  ///< none: an item of the bar
    screen::Toolbar* bar = nullptr;
    int item = 0;
};

/// The first control of the form, in the order of their making, that can take the focus and answers to the letter
/// (capital or small); none when there is no such control. An item of a bar that opens a menu counts.
std::optional<MnemonicTarget> targetOf(const screen::Form& form, char32_t letter);

}  // namespace velmora::toolkit
