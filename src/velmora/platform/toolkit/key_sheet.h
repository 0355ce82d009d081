#pragma once
// The sheet of all keys of a form, made from what the keys themselves are found by: captions, mnemonics, second names.

#include <string>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

struct KeyLine {
    std::string keys;   ///< "F5, Ctrl+S"
    std::string words;  ///< "Grabar"
};

/// The keys of the form as it is on the screen now: function keys, which the form tells itself (screen::TellsKeys) or
/// names in captions; other keys in captions; letters with Alt; then those that all forms have.
std::vector<KeyLine> keyLines(const screen::Form& form);

}  // namespace velmora::toolkit
