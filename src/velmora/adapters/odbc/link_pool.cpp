#include "velmora/adapters/odbc/link_pool.h"

#include <utility>

namespace velmora::odbc {

namespace {
/// Connections kept for the next sets. More are open only while more sets are being read at once.
constexpr std::size_t mostIdle = 2;
}  // namespace

LinkPool::LinkPool(std::string connectionText, Options options)
    : connectionText_(std::move(connectionText)), options_(std::move(options)) {}

std::shared_ptr<Link> LinkPool::take() {
    {
        const std::lock_guard lock(mutex_);
        if (!idle_.empty()) {
            std::shared_ptr<Link> link = std::move(idle_.back());
            idle_.pop_back();
            return link;
        }
    }
    return std::make_shared<Link>(connectionText_, options_);
}

bool LinkPool::hasIdle() {
    const std::lock_guard lock(mutex_);
    return !idle_.empty();
}

void LinkPool::giveBack(std::shared_ptr<Link> link) {
    const std::lock_guard lock(mutex_);
    if (!link->isLost() && idle_.size() < mostIdle) {
        idle_.push_back(std::move(link));
    }
}

}  // namespace velmora::odbc
