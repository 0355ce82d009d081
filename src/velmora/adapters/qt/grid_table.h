#pragma once
// The table of a grid: selection of whole rows, thin lines, a stretching text column.

#include <QTableView>
#include <functional>
#include <vector>

namespace velmora::qt {

class GridTable : public QTableView {
  public:
    GridTable(int lines, QWidget* parent);

    /// Nominal widths in pixels; the column `stretching` (-1: none) takes the remaining width.
    void setWidths(std::vector<int> widths, int stretching);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void distribute();

    int lines_;
    std::vector<int> widths_;
    int stretching_ = -1;
    bool distributing_ = false;
    bool resizedByUser_ = false;
};

}  // namespace velmora::qt
