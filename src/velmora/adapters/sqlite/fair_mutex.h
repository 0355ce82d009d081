#pragma once
// A mutex that threads acquire in the order of their requests.

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace velmora::sqlite {

/// Two threads that lock it in a loop alternate; with std::mutex, one of them may starve.
class FairMutex {
  public:
    void lock() {
        std::unique_lock turn(mutex_);
        const std::uint64_t own = asked_++;
        changed_.wait(turn, [&] { return served_ == own; });
    }
    void unlock() {
        {
            const std::lock_guard turn(mutex_);
            ++served_;
        }
        changed_.notify_all();
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t asked_ = 0;
    std::uint64_t served_ = 0;
};

}  // namespace velmora::sqlite
