#include <ctime>
#include <thread>

#include "velmora/platform/system/system.h"

namespace velmora::system {

void Clock::pause(std::chrono::milliseconds time) const {
    std::this_thread::sleep_for(time);
}

runtime::Date SystemClock::now() const {
    const std::time_t moment = std::time(nullptr);
    const std::tm local = *std::localtime(&moment);
    return runtime::Date::of(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                             static_cast<unsigned>(local.tm_mday), local.tm_hour, local.tm_min, local.tm_sec);
}

}  // namespace velmora::system
