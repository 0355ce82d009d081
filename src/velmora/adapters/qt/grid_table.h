#pragma once
// The table of a grid: selection of whole rows, thin lines, a stretching text column.

#include <QTableView>
#include <functional>
#include <vector>

#include "velmora/platform/toolkit/grid_columns.h"

namespace velmora::qt {

class WindowMemory;

class GridTable : public QTableView {
  public:
    GridTable(int lines, QWidget* parent);

    /// A width kept in the memory counts instead of a nominal one, and is not changed with the table's.
    void setWidths(toolkit::ColumnWidths widths);
    /// Widths that the user sets are kept under this name; the model's headers name the columns. The memory must
    /// outlive the table; nullptr: none.
    void remember(WindowMemory* memory, const QString& name);

    /// Of the heading and of each row, in pixels; grows with the letters.
    int rowHeight() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void distribute();
    void applyRowHeight();
    void resizedByUser(int column, int width);
    void fix(int column, int width);
    QString captionOf(int column) const;

    int lines_;
    toolkit::ColumnWidths widths_;
    bool distributing_ = false;
    WindowMemory* memory_ = nullptr;
    QString name_;
};

}  // namespace velmora::qt
