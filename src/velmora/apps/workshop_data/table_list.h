#pragma once
// The rows of a table in its grid: those that match the search box.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/apps/workshop_data/references.h"
#include "velmora/apps/workshop_data/row_check.h"
#include "velmora/apps/workshop_data/tables.h"
#include "velmora/platform/screen/data_grid.h"

namespace velmora::workshop_data {

class TableList {
  public:
    /// The current row is another one, or there is none. Not called before the first `show`.
    std::function<void()> onMoved;

    TableList(screen::DataGrid& grid, const Table& table);

    /// Replaces all rows; the first one that matches the search becomes the current one.
    void show(std::vector<StoredRow> rows, const References& references);
    /// Leaves the rows that contain each of the words.
    void search(std::string_view words);
    /// Makes the row with this key the current one, and shows all rows when the search hides it; nothing when no row
    /// has the key.
    void goTo(const std::string& key);

    /// nullptr when no row matches.
    const StoredRow* current() const;
    std::size_t shownCount() const { return shown_.size(); }
    std::size_t count() const { return rows_.size(); }

  private:
    std::vector<screen::GridColumn> gridColumns() const;
    sql::Row cellsOf(const StoredRow& row, const References& references) const;
    void bindMatches();

    screen::DataGrid& grid_;
    const Table& table_;
    std::vector<StoredRow> rows_;
    std::vector<sql::Row> cells_;      ///< of each row, for the grid
    std::vector<std::string> folded_;  ///< of each row, for the search
    std::vector<std::size_t> shown_;   ///< positions in `rows_`
    std::vector<std::string> words_;
    sql::ListenedRecordset set_;
};

}  // namespace velmora::workshop_data
