#pragma once
// Keeps open sets from making the write-ahead files grow.

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "velmora/adapters/sqlite/open_rows.h"

namespace velmora::sqlite {

/// A set that holds an older state of a database keeps its write-ahead file from being written from the start again.
/// While there are such sets, a thread polls the size of the files; when one has grown because of a set, it copies the
/// set (OpenRows::detachStep). It needs no call of the program, which may be waiting for its user. Without such sets
/// the thread sleeps.
class SnapshotWatch {
  public:
    SnapshotWatch() = default;
    ~SnapshotWatch();
    SnapshotWatch(const SnapshotWatch&) = delete;
    SnapshotWatch& operator=(const SnapshotWatch&) = delete;

    /// May be called on any thread. A set that is closed is removed by the watch itself.
    void add(const std::shared_ptr<OpenRows>& set);

  private:
    void run(const std::stop_token& stop);
    std::vector<std::shared_ptr<OpenRows>> held();

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::vector<std::weak_ptr<OpenRows>> sets_;
    std::jthread thread_;  ///< from the first set on
};

}  // namespace velmora::sqlite
