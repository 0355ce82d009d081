#pragma once
// Finds the columns of a set by their names.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/recordset.h"

namespace velmora::sql {

/// Where a set of columns is asked for by name. The first names are looked for one column after the other; a set of
/// many columns that is asked for more gets a table of them. Belongs to one list of columns, which must not change.
class ColumnIndex {
  public:
    /// The position of the first column of that name in any case; none when there is none.
    std::optional<std::size_t> find(const std::vector<Column>& columns, std::string_view name);

    /// For another list of columns.
    void forget();

  private:
    void build(const std::vector<Column>& columns);
    std::optional<std::size_t> findInTable(const std::vector<Column>& columns, std::string_view name) const;

    std::size_t asked_ = 0;
    std::vector<std::uint32_t> table_;  ///< positions from 1, 0 for a free place; from the place of a name's mark on
    int shift_ = 0;                     ///< of a mark to its place
};

}  // namespace velmora::sql
