#pragma once
// What a form's function keys do, told by the form for those that no caption names.

#include <string_view>
#include <vector>

#include "velmora/platform/screen/keys.h"

namespace velmora::screen {

struct KeyWords {
    Key key = Key::none;
    std::string_view words;  ///< "Mano de obra"
};

class TellsKeys {
  public:
    virtual ~TellsKeys() = default;
    virtual std::vector<KeyWords> functionKeys() const = 0;
};

}  // namespace velmora::screen
