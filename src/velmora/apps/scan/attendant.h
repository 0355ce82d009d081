#pragma once
// Keeps the line to the starting program open while the work blocks in the library of the scanners.

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scan {

/// While it lives, a thread tells how far the watch is, whenever it has advanced, and cancels it when the standard
/// input ends. When the work has not ended within the grace after that, the process is ended: whoever started it has
/// given it up, or is dead.
class Attendant {
  public:
    /// `tell` is called on the thread of the attendant.
    Attendant(scanner::Watch& watch, std::function<void(std::optional<double>)> tell,
              std::chrono::milliseconds grace = std::chrono::seconds(4));
    ~Attendant();
    Attendant(const Attendant&) = delete;
    Attendant& operator=(const Attendant&) = delete;

  private:
    void attend();
    void tellAdvance();
    void endWithTheWork();

    scanner::Watch& watch_;
    std::function<void(std::optional<double>)> tell_;
    std::chrono::milliseconds grace_;
    std::size_t told_ = 0;
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

}  // namespace velmora::scan
