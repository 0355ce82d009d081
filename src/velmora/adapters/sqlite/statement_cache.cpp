#include "velmora/adapters/sqlite/statement_cache.h"

#include <atomic>

namespace velmora::sqlite {

std::uint64_t CachedStatement::nextId() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

std::shared_ptr<CachedStatement> StatementCache::find(std::string_view text) {
    const auto found = byText_.find(text);
    if (found == byText_.end()) {
        return nullptr;
    }
    order_.splice(order_.begin(), order_, found->second);
    return *found->second;
}

void StatementCache::add(std::shared_ptr<CachedStatement> statement) {
    remove(statement->text);
    order_.push_front(std::move(statement));
    byText_.emplace(order_.front()->text, order_.begin());
    if (byText_.size() > bound_) {
        byText_.erase(order_.back()->text);
        order_.pop_back();
    }
}

void StatementCache::remove(std::string_view text) {
    if (const auto found = byText_.find(text); found != byText_.end()) {
        const auto at = found->second;
        byText_.erase(found);
        order_.erase(at);
    }
}

void StatementCache::clear() {
    byText_.clear();
    order_.clear();
}

}  // namespace velmora::sqlite
