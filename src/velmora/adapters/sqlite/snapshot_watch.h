#pragma once
// Sees to it that open sets do not make the write-ahead files grow.

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "velmora/adapters/sqlite/open_rows.h"

namespace velmora::sqlite {

/// A set that holds an older state of a database keeps its write-ahead file from being written from the start again.
/// While there are such sets, a thread looks at the size of the files; when one has grown behind a set, it takes the
/// set off the database. The program need not do anything for it: it may wait for its user. Without such sets the
/// thread sleeps.
class SnapshotWatch {
  public:
    SnapshotWatch() = default;
    ~SnapshotWatch();
    SnapshotWatch(const SnapshotWatch&) = delete;
    SnapshotWatch& operator=(const SnapshotWatch&) = delete;

    /// From any thread; forgets the set by itself when that is closed.
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
