#pragma once
// A clock that stands at one moment.

#include <chrono>
#include <functional>
#include <vector>

#include "velmora/platform/system/system.h"

namespace velmora::support {

class StoppedClock final : public system::Clock {
  public:
    StoppedClock() = default;
    explicit StoppedClock(runtime::Date moment) : time(moment) {}

    runtime::Date now() const override { return time; }
    void pause(std::chrono::milliseconds length) const override;

    runtime::Date time = runtime::Date::of(2026, 1, 15, 10);
    /// Every pause that was asked for. None of them lasts unless `pace` is set: then so many times shorter than asked.
    mutable std::vector<std::chrono::milliseconds> pauses;
    std::function<void()> onPause;
    int pace = 0;
};

}  // namespace velmora::support
