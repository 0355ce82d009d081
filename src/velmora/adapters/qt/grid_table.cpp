#include "velmora/adapters/qt/grid_table.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <numeric>

#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

GridTable::GridTable(int lines, QWidget* parent) : QTableView(parent), lines_(lines) {
    setFocusPolicy(Qt::TabFocus);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setMouseTracking(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(theme::gridRow);
    verticalHeader()->setMinimumSectionSize(theme::gridRow);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(theme::gridRow);
    horizontalHeader()->setMinimumSectionSize(24);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this] { resizedByUser_ = resizedByUser_ || !distributing_; });
}

void GridTable::setWidths(std::vector<int> widths, int stretching) {
    widths_ = std::move(widths);
    stretching_ = stretching;
    resizedByUser_ = false;
    distribute();
}

void GridTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (!resizedByUser_) {
        distribute();
    }
}

void GridTable::distribute() {
    distributing_ = true;
    const int spare = viewport()->width() - std::accumulate(widths_.begin(), widths_.end(), 0);
    for (int i = 0; i < static_cast<int>(widths_.size()); ++i) {
        const int width = widths_[static_cast<std::size_t>(i)];
        setColumnWidth(i, i == stretching_ ? width + std::max(spare, 0) : width);
    }
    distributing_ = false;
}

QSize GridTable::sizeHint() const {
    const int columns = std::accumulate(widths_.begin(), widths_.end(), 0);
    return {std::clamp(columns + 24, 240, 1100), theme::gridRow * (lines_ > 1 ? lines_ + 1 : 9) + 4};
}

QSize GridTable::minimumSizeHint() const {
    return {160, theme::gridRow * 4 + 4};
}

}  // namespace velmora::qt
