#pragma once
// Mnemonics: the letters that press buttons together with Alt.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// The letter after the first "&" of a caption, in upper case; 0 when none is marked. "&&" stands for a plain "&".
char32_t mnemonicOf(std::string_view caption);

/// The captions of a bar's items; empty for separators. An item without a marked letter is given its first letter that
/// no earlier item has been given: the bar takes the focus as a whole, so its buttons are reached by Alt only.
std::vector<std::string> captionsOf(const screen::Toolbar& bar);

/// What Alt and a letter press: a button, or an item of a bar, counted from 1.
struct MnemonicTarget {
    screen::Button* button = nullptr;  ///< nullptr: an item of the bar
    screen::Toolbar* bar = nullptr;
    int item = 0;
};

/// The first control of the form, in order of construction, that can take the focus and has this letter in either case;
/// nullopt when there is none. Bar items that open a menu are included.
std::optional<MnemonicTarget> targetOf(const screen::Form& form, char32_t letter);

}  // namespace velmora::toolkit
