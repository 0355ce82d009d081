#include "velmora/adapters/sqlite/link_pool.h"

#include <utility>

namespace velmora::sqlite {

namespace {

/// Idle links kept open for later sets; others are closed when they are given back.
constexpr std::size_t mostIdleLinks = 3;

}  // namespace

std::shared_ptr<Link> LinkPool::take() {
    std::unique_ptr<Link> link;
    {
        const std::lock_guard lock(mutex_);
        if (!idle_.empty()) {
            link = std::move(idle_.back());
            idle_.pop_back();
        }
    }
    if (!link) {
        link = std::make_unique<Link>(path_, options_);
    }
    return {link.release(), [pool = shared_from_this()](Link* held) { pool->giveBack(std::unique_ptr<Link>(held)); }};
}

void LinkPool::giveBack(std::unique_ptr<Link> link) {
    try {
        link->leaveSnapshot();
    } catch (const sql::DbError&) {
        return;  // a link that cannot end its snapshot is closed
    }
    const std::lock_guard lock(mutex_);
    if (idle_.size() < mostIdleLinks) {
        idle_.push_back(std::move(link));
    }
}

}  // namespace velmora::sqlite
