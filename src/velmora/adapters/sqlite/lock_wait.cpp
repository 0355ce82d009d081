#include "velmora/adapters/sqlite/lock_wait.h"

#include <algorithm>
#include <array>
#include <utility>

#include <sqlite3.h>

namespace velmora::sqlite {

namespace {

using std::chrono::milliseconds;

/// Milliseconds between attempts, as the engine's own handler waits; the last one is repeated.
constexpr std::array pauses{1, 2, 5, 10, 15, 20, 25, 25, 25, 50, 50, 100};

/// An exception must pass neither through the engine nor out of a destructor.
void tell(const Options& options, bool waits) {
    if (!options.waiting) {
        return;
    }
    try {
        options.waiting(waits);
    } catch (...) {  // what is shown of a wait must not end the statement
    }
}

}  // namespace

void LockWait::watch(sqlite3* database) {
    sqlite3_busy_handler(database, waitOnce, this);
}

int LockWait::waitOnce(void* wait, int attempts) {
    return static_cast<LockWait*>(wait)->goesOn(attempts) ? 1 : 0;
}

bool LockWait::goesOn(int attempts) {
    const auto now = std::chrono::steady_clock::now();
    if (attempts == 0) {
        begun_ = now;
    }
    const auto waited = std::chrono::duration_cast<milliseconds>(now - begun_);
    if (waited >= options_.busyTimeout) {
        return false;
    }
    if (waited >= options_.waitingAfter) {
        tell(options_, true);
    }
    const auto step = std::min(static_cast<std::size_t>(attempts), pauses.size() - 1);
    std::this_thread::sleep_for(std::min(milliseconds(pauses[step]), options_.busyTimeout - waited));
    return true;
}

std::function<void(bool)> toldOnce(std::function<void(bool waits)> listener) {
    if (!listener) {
        return {};
    }
    return [listener = std::move(listener), owner = std::this_thread::get_id(),
            told = std::make_shared<bool>(false)](bool waits) {
        if (std::this_thread::get_id() == owner && std::exchange(*told, waits) != waits) {
            listener(waits);
        }
    };
}

WaitsEnd::~WaitsEnd() {
    tell(options_, false);
}

}  // namespace velmora::sqlite
