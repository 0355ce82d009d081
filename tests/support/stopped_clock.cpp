#include "support/stopped_clock.h"

#include <thread>

namespace velmora::support {

void StoppedClock::pause(std::chrono::milliseconds length) const {
    pauses.push_back(length);
    if (onPause) {
        onPause();
    }
    if (pace != 0) {
        std::this_thread::sleep_for(length / pace);
    }
}

}  // namespace velmora::support
