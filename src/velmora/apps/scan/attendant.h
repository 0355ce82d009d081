#pragma once
// Communicates with the starting program while the main thread is blocked in the scanner library.

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scan {

/// During its lifetime a thread reports the watch's progress whenever it has advanced, and cancels the watch when the
/// standard input ends. When the work has not ended within the grace period after that, the thread ends the process,
/// because the starting program has given up or died.
class Attendant {
  public:
    /// `tell` is called on the background thread.
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
