#pragma once
// Statements by their text: translated once, prepared once.

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "velmora/adapters/sqlite/dialect.h"
#include "velmora/adapters/sqlite/statement.h"

namespace velmora::sqlite {

/// A translated statement and, while nobody runs it, its prepared form.
struct CachedStatement {
    std::string text;
    Translation translation;
    std::unique_ptr<Statement> idle;
};

/// Keeps the statements used last. Whoever runs one shares it: it may leave the cache meanwhile.
class StatementCache {
  public:
    explicit StatementCache(std::size_t bound) : bound_(bound) {}

    /// Nothing when the text is not known.
    std::shared_ptr<CachedStatement> find(std::string_view text);
    void add(std::shared_ptr<CachedStatement> statement);
    void remove(std::string_view text);
    void clear();
    std::size_t size() const { return byText_.size(); }

  private:
    using Order = std::list<std::shared_ptr<CachedStatement>>;
    std::size_t bound_;
    Order order_;  ///< the one used last stands first
    std::unordered_map<std::string_view, Order::iterator> byText_;
};

}  // namespace velmora::sqlite
