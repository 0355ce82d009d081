#pragma once
// The order of texts: Spanish, blind to case and to trailing blanks, not to accents; ñ between n and o.

#include <memory>
#include <string_view>

struct sqlite3;

namespace velmora::sqlite {

/// Compares two texts; below, equal to or above zero.
class SpanishOrder {
  public:
    SpanishOrder();
    ~SpanishOrder();
    SpanishOrder(const SpanishOrder&) = delete;
    SpanishOrder& operator=(const SpanishOrder&) = delete;

    int compare(std::string_view a, std::string_view b) const;

  private:
    struct Collator;
    std::unique_ptr<Collator> collator_;
};

/// Makes the collation known by its name (collationName) to a connection of the engine. Errors: DbError.
void registerCollation(sqlite3* database);

}  // namespace velmora::sqlite
