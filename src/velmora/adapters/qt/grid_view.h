#pragma once
// A grid: its table, bound in both directions to the current row, and a row count below it.

#include <QLabel>

#include "velmora/adapters/qt/control_view.h"
#include "velmora/adapters/qt/grid_model.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/toolkit/grid_keys.h"

namespace velmora::qt {

class GridTable;

class GridView : public ControlView {
  public:
    GridView(ViewHost& host, screen::DataGrid& grid, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override { return *box_; }
    QWidget& focusTarget() override;
    std::vector<QWidget*> inputs() override;
    void update(screen::Property property) override;
    QString aimOf(const QMouseEvent& press) const override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool otherEvent(QEvent& event) override;
    void setAccessibleName(const QString& name) override;

  private:
    void reload();
    void setWidths();
    void bringRow();
    void userMoved(int row);
    void clicked(const QModelIndex& index);
    void clickedTwice(const QModelIndex& index);
    bool hasButton(const QModelIndex& index) const;
    std::size_t gridColumn(const QModelIndex& index) const;
    void showCount();
    /// Number of rows per page.
    std::size_t page(toolkit::RowMove move) const;

    screen::DataGrid& grid_;
    QWidget* box_;
    GridTable* table_;
    QLabel* count_;
    GridModel* model_;
    bool fromModel_ = false;
};

}  // namespace velmora::qt
