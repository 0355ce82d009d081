#pragma once
// The connections of one data connection: one for statements, others for sets whose rows are still coming.

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

    /// One that nobody uses, else a new one. Errors: see openDatabase.
    std::shared_ptr<Link> take();
    /// True when take() need not open a new one.
    bool hasIdle();
    /// Gives one back; a connection that is lost, or one too many, is closed.
    void giveBack(std::shared_ptr<Link> link);

  private:
    std::string connectionText_;
    Options options_;
    std::mutex mutex_;
    std::vector<std::shared_ptr<Link>> idle_;
};

}  // namespace velmora::odbc
