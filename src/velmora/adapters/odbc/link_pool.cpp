#include "velmora/adapters/odbc/link_pool.h"

#include <chrono>
#include <utility>

namespace velmora::odbc {

namespace {
/// Connections kept for the next sets. More are open only while more sets are being read at once.
constexpr std::size_t mostIdle = 2;
/// How long a statement waits for a connection whose set is still being read, before it opens another one.
constexpr std::chrono::milliseconds patience{20};
}  // namespace

LinkPool::LinkPool(std::string connectionText, Options options)
    : connectionText_(std::move(connectionText)), options_(std::move(options)) {}

std::shared_ptr<Link> LinkPool::take() {
    {
        std::unique_lock lock(mutex_);
        returned_.wait_for(lock, patience, [&] { return !idle_.empty() || inUse_ == 0; });
        if (!idle_.empty()) {
            std::shared_ptr<Link> link = std::move(idle_.back());
            idle_.pop_back();
            ++inUse_;
            return link;
        }
    }
    auto link = std::make_shared<Link>(connectionText_, options_);
    const std::lock_guard lock(mutex_);
    ++inUse_;
    return link;
}

void LinkPool::giveBack(std::shared_ptr<Link> link) {
    {
        const std::lock_guard lock(mutex_);
        --inUse_;
        if (!link->isLost() && idle_.size() < mostIdle) {
            idle_.push_back(std::move(link));
        }
    }
    returned_.notify_all();
}

}  // namespace velmora::odbc
