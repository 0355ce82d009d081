#pragma once
// A table of rows that are read when they are scrolled into view: selection of whole rows, thin lines, a stretching
// text column.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "velmora/adapters/win32/canvas.h"
#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/toolkit/grid_columns.h"

namespace velmora::win32 {

class GridTable {
  public:
    struct Column {
        std::wstring caption;
        bool right = false;  ///< right-aligned
    };
    struct Cell {
        int row = -1;
        int column = -1;

        friend bool operator==(const Cell&, const Cell&) = default;
    };
    using CellText = std::function<std::wstring(int row, int column)>;
    /// Whether a cell shows a button.
    using CellButton = std::function<bool(int row, int column)>;

    GridTable(HWND parent, const Theme& theme, CellText text, CellButton button = {});

    HWND handle() const { return list_; }
    /// A larger or smaller scale.
    void useTheme(const Theme& theme);
    void setColumns(std::vector<Column> columns);
    void setWidths(toolkit::ColumnWidths widths);
    void setRowCount(int rows);
    int rowCount() const;
    /// The current row; -1: none. It is scrolled into view.
    void setCurrent(int row);
    int current() const { return current_; }
    /// The cell with the keyboard's mark; -1: none is marked.
    void setMarkedColumn(int column);

    /// To be called when its size has changed.
    void resized();
    /// The cell under a point; both -1 when there is none.
    Cell cellAt(POINT point) const;
    /// A cell's place, scrolled into view first.
    Box placeOf(const Cell& cell);
    int topRow() const;
    void scrollTo(int topRow);
    /// Rows that fit as a whole.
    int rowsPerPage() const;
    /// Height of the rows' room in pixels.
    int roomHeight() const;
    int rowHeight() const { return theme_->scaled(style::gridRow); }
    bool isCut(const Cell& cell) const;
    std::wstring cellText(const Cell& cell) const { return text_(cell.row, cell.column); }

    void drawItem(const DRAWITEMSTRUCT& item) const;
    /// Text for assistive technology.
    void tell(NMLVDISPINFOW& wanted) const;
    /// The user has changed a column's width: widths are no longer set when the table is resized.
    void keepWidths() { resizedByUser_ = true; }
    bool isDistributing() const { return distributing_; }

  private:
    void distribute();
    std::optional<LRESULT> headerMessage(UINT message, WPARAM word, LPARAM value) const;
    HWND header() const;
    int columnWidth(int column) const;
    void drawCell(Canvas& canvas, const Box& box, const Cell& cell) const;
    std::wstring fitted(const std::wstring& text, int room) const;

    const Theme* theme_;
    CellText text_;
    CellButton button_;
    HWND list_;
    std::unique_ptr<Interception> headerMessages_;
    std::vector<Column> columns_;
    toolkit::ColumnWidths widths_;
    int current_ = -1;
    int marked_ = -1;
    bool distributing_ = false;
    bool resizedByUser_ = false;
};

}  // namespace velmora::win32
