#pragma once
// The connections of one data connection: one for statements, others for sets whose rows are still coming.

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "velmora/adapters/odbc/link.h"

namespace velmora::odbc {

/// For several threads at once.
class LinkPool {
  public:
    LinkPool(std::string connectionText, Options options);

    /// One that nobody uses. While there is none but some are in use, waits briefly for one to come back: most sets
    /// have been read sooner than another connection is open. Else a new one. Errors: see openDatabase.
    std::shared_ptr<Link> take();
    /// Gives one back that take() gave; a connection that is lost, or one too many, is closed.
    void giveBack(std::shared_ptr<Link> link);

  private:
    std::string connectionText_;
    Options options_;
    std::mutex mutex_;
    std::condition_variable returned_;
    std::vector<std::shared_ptr<Link>> idle_;
    int inUse_ = 0;
};

}  // namespace velmora::odbc
