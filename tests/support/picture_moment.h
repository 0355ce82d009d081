#pragma once
// The moment at which pictures are made: the same wherever they are.

#include "velmora/platform/system/system.h"

namespace velmora::support {

class PictureClock final : public system::Clock {
  public:
    runtime::Date now() const override { return runtime::Date::of(2026, 11, 20, 10); }
};

}  // namespace velmora::support
