#pragma once
// Waiting for another process that writes: how long a link does so, and what the program is told of it.

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include "velmora/adapters/sqlite/database.h"

struct sqlite3;

namespace velmora::sqlite {

/// Waits on behalf of one link, up to `busyTimeout` in a row, and calls `waiting` with true from `waitingAfter` on.
class LockWait {
  public:
    /// `options` must live longer.
    explicit LockWait(const Options& options) : options_(options) {}
    LockWait(const LockWait&) = delete;
    LockWait& operator=(const LockWait&) = delete;

    /// To be called once the database is open; this object must live as long as it.
    void watch(sqlite3* database);

  private:
    static int waitOnce(void* wait, int attempts);
    bool goesOn(int attempts);

    const Options& options_;
    std::chrono::steady_clock::time_point begun_;
};

/// What is told of the waits of all links of an engine: each change once, on the thread of the constructor alone.
std::function<void(bool)> toldOnce(std::function<void(bool waits)> listener);

/// Tells at the end of its scope that nothing waits any more.
class WaitsEnd {
  public:
    explicit WaitsEnd(const Options& options) : options_(options) {}
    ~WaitsEnd();
    WaitsEnd(const WaitsEnd&) = delete;
    WaitsEnd& operator=(const WaitsEnd&) = delete;

  private:
    const Options& options_;
};

}  // namespace velmora::sqlite
