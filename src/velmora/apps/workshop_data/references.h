#pragma once
// The rows of other tables that a table's columns name, read at once.

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "velmora/apps/workshop_data/tables.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::workshop_data {

class References {
  public:
    /// None: for tables without references.
    References() = default;
    /// Reads every table that the columns name. Errors: the database's.
    References(sql::Connection& connection, const Table& table);

    /// The key of the row with this code, in any case; nullopt when there is none.
    std::optional<std::int32_t> keyOf(const Reference& reference, std::string_view code) const;
    /// The code of the row with this key, the key itself when there is no such row.
    std::string codeOf(const Reference& reference, std::int32_t key) const;
    /// What the row with this code is; empty when there is none.
    std::string nameOf(const Reference& reference, std::string_view code) const;

    /// The `detail` of the row with this code; nullopt when there is none or it is null.
    std::optional<std::int32_t> detailOf(const Reference& reference, std::string_view code) const;

  private:
    struct Named {
        std::string code;
        std::string name;
        std::optional<std::int32_t> detail;
    };
    struct Rows {
        std::unordered_map<std::int32_t, Named> byKey;
        std::unordered_map<std::string, std::int32_t> byCode;  ///< in capitals
    };
    static Rows readRows(sql::Connection& connection, const Reference& reference);
    const Rows* rowsOf(const Reference& reference) const;

    std::map<std::string_view, Rows> tables_;
};

}  // namespace velmora::workshop_data
