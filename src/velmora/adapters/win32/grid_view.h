#pragma once
// A grid: its table, bound in both directions to the current row, and a row count below it.

#include "velmora/adapters/win32/control_view.h"
#include "velmora/adapters/win32/grid_table.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/toolkit/grid_rows.h"

namespace velmora::win32 {

class GridView : public ControlView {
  public:
    GridView(ViewHost& host, screen::DataGrid& grid, const screen::Layout& layout);

    std::vector<HWND> windows() const override { return {table_.handle()}; }
    HWND focusTarget() const override { return table_.handle(); }
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return true; }
    void draw(Canvas& canvas) override;
    void useTheme() override;

    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool nativeKey(WPARAM virtualKey) override;
    std::wstring toolTip() const override;
    std::wstring aimOf(POINT press) const override;
    std::optional<LRESULT> message(HWND window, UINT message, WPARAM word, LPARAM value) override;
    LRESULT notified(const NMHDR& what) override;
    void drawItem(const DRAWITEMSTRUCT& item) override { table_.drawItem(item); }
    void focusGained() override;
    void focusLeft() override;

    GridTable& table() { return table_; }
    const toolkit::GridRows& rows() const { return rows_; }
    /// The text below the table: "Fila 3 de 12 filas".
    std::wstring countText() const;

  protected:
    void placed() override;

  private:
    void reload();
    void setWidths();
    void bringRow();
    void grow(std::size_t rows);
    void ensureRow(std::size_t row);
    /// Reads more rows when the last known one is near.
    void scrolled();
    void press(POINT point);
    void pressTwice();
    void release(POINT point);
    void hover(POINT point);
    bool stepColumn(int by);
    /// Number of rows per page.
    std::size_t page(toolkit::RowMove move) const;
    int countHeight() const;

    screen::DataGrid& grid_;
    int lines_;
    toolkit::GridRows rows_;
    GridTable table_;
    int column_ = 0;  ///< of the keyboard's mark
    GridTable::Cell pressed_;
    bool buttonDone_ = false;  ///< the first press of a pair has done what a button does
    GridTable::Cell hovered_;
    std::vector<int> widths_;
};

}  // namespace velmora::win32
