#pragma once
// Statements by their text or their shape, translated once.

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/sqlite/emitters/translation.h"

namespace velmora::sqlite {

/// Texts longer than this carry a document's content and are not run twice.
inline constexpr std::size_t longestCachedText = std::size_t{16} * 1024;

/// How the rows of a set are read.
enum class Way { asWritten, walking, keysFirst };

/// A translated statement. Once made it is not changed but for `way`: sets on other threads read by it.
struct CachedStatement {
    std::uint64_t id = nextId();  ///< by which a link knows its prepared form; the same for all of one shape
    std::string text;             ///< with its values, or the shape's
    std::shared_ptr<const Translation> translation;
    std::vector<sql::Value> values{};  ///< of its parameters
    bool runsAgain = true;
    std::int64_t schemaVersion = 0;                      ///< of the link, when it was translated
    std::shared_ptr<const CachedStatement> walking{};    ///< by Translation::walkStatement
    std::shared_ptr<const CachedStatement> keysFirst{};  ///< by Translation::keysStatement

    Way way =
        Way::asWritten;  ///< that found the first rows the last time; read and changed by the engine's thread only

    static std::uint64_t nextId();
};

/// Keeps the `bound` statements used last. A running statement is shared: it may be evicted meanwhile.
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
