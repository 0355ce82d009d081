#include "velmora/adapters/sqlite/snapshot_watch.h"

#include <system_error>
#include <utility>

namespace velmora::sqlite {

namespace {

/// Time between two polls of the files. A busy writer adds some hundred KiB in it.
constexpr std::chrono::milliseconds interval{50};

}  // namespace

SnapshotWatch::~SnapshotWatch() {
    thread_.request_stop();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void SnapshotWatch::add(const std::shared_ptr<OpenRows>& set) {
    const std::lock_guard lock(mutex_);
    sets_.push_back(set);
    if (!thread_.joinable()) {
        try {
            thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
        } catch (const std::system_error&) {
            // No thread is available. Sets remain correct; the file grows until they are closed.
            sets_.clear();
        }
    }
    changed_.notify_one();
}

void SnapshotWatch::run(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, stop, [this] { return !sets_.empty(); });
            changed_.wait_for(lock, stop, interval, [] { return false; });
        }
        for (const std::shared_ptr<OpenRows>& set : held()) {
            while (!stop.stop_requested() && set->hinders() && set->detachStep()) {
            }
        }
    }
}

/// The sets that still hold their state of a database; the others are forgotten.
std::vector<std::shared_ptr<OpenRows>> SnapshotWatch::held() {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<OpenRows>> all;
    for (const std::weak_ptr<OpenRows>& known : sets_) {
        if (auto set = known.lock(); set && set->isHeld()) {
            all.push_back(std::move(set));
        }
    }
    sets_.assign(all.begin(), all.end());
    return all;
}

}  // namespace velmora::sqlite
