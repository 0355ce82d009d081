#pragma once
// A grid over a recordset. The grid's current row is the recordset's current row.

#include <cstddef>
#include <string>
#include <vector>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::screen {

struct GridColumn {
    int field = 0;  ///< position in the recordset
    std::string caption;
    int width = 1000;       ///< twips, 15 per pixel at 100 %
    std::string mask = {};  ///< a runtime::Format mask; "Yes/No" for a bit
    bool right = false;     ///< right-aligned
    bool button = false;    ///< each cell has a button
    bool visible = true;
};

/// The text of a value in a cell under the column's mask; null is empty.
std::string shownUnder(const sql::Value& value, const std::string& mask);

class DataGrid : public Control {
  public:
    using Control::Control;
    bool isFocusable() const override { return true; }

    const std::vector<GridColumn>& columns() const { return columns_; }
    void setColumns(std::vector<GridColumn> columns);

    /// Binding a closed recordset removes the binding.
    void bind(sql::Recordset recordset);
    const sql::Recordset& recordset() const { return recordset_; }
    /// Redraws the rows.
    void refresh() { notify(Property::rows); }

    /// 0 when nothing is bound.
    std::size_t rowCount() const;
    /// The text of a cell, by the column's mask; null is empty.
    std::string cellText(std::size_t row, std::size_t column) const;

    /// The user moves to a row; the recordset moves along and notifies its listeners.
    void moveToRow(std::size_t row);

    Event<int> onButtonClick;   ///< index into columns()
    Event<KeyDown&> onKeyDown;  ///< a key pressed in the grid, after the form's KeyDown

  private:
    std::vector<GridColumn> columns_;
    sql::Recordset recordset_;
    sql::Subscription moves_;
};

}  // namespace velmora::screen
