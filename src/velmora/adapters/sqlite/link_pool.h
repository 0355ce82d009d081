#pragma once
// The links of one data connection. One runs the statements; each long set that is still being read has one of its own.

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "velmora/adapters/sqlite/link.h"

namespace velmora::sqlite {

class LinkPool : public std::enable_shared_from_this<LinkPool> {
  public:
    LinkPool(std::string path, Options options) : path_(std::move(path)), options_(std::move(options)) {}

    /// An idle link, or a new one. Releasing the last pointer, on any thread, ends the link's snapshot and returns it
    /// to the pool. Errors: DbError.
    std::shared_ptr<Link> take();

  private:
    void giveBack(std::unique_ptr<Link> link);

    const std::string path_;
    const Options options_;
    std::mutex mutex_;
    std::vector<std::unique_ptr<Link>> idle_;
};

}  // namespace velmora::sqlite
