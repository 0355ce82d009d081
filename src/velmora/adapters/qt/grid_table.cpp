#include "velmora/adapters/qt/grid_table.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

#include "velmora/adapters/qt/theme.h"
#include "velmora/adapters/qt/window_memory.h"

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
    horizontalHeader()->setHighlightSections(false);
    applyRowHeight();
    horizontalHeader()->setMinimumSectionSize(24);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!distributing_) {
            resizedByUser(column, width);
        }
    });
}

int GridTable::rowHeight() const {
    return std::max(theme::gridRow, fontMetrics().height() + theme::group);
}

void GridTable::applyRowHeight() {
    verticalHeader()->setMinimumSectionSize(rowHeight());
    verticalHeader()->setDefaultSectionSize(rowHeight());
    horizontalHeader()->setFixedHeight(rowHeight());
}

void GridTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        applyRowHeight();
        updateGeometry();
    }
}

void GridTable::remember(WindowMemory* memory, const QString& name) {
    memory_ = memory;
    name_ = name;
}

QString GridTable::captionOf(int column) const {
    return model()->headerData(column, Qt::Horizontal).toString();
}

void GridTable::fix(int column, int width) {
    widths_.pixels[static_cast<std::size_t>(column)] = width;
    widths_.wanted[static_cast<std::size_t>(column)] = width;
    widths_.stretching = widths_.stretching == column ? -1 : widths_.stretching;
}

void GridTable::resizedByUser(int column, int width) {
    if (column >= static_cast<int>(widths_.pixels.size())) {
        return;
    }
    fix(column, width);
    if (memory_ != nullptr) {
        memory_->keepWidth(name_, captionOf(column), width);
    }
}

void GridTable::setWidths(toolkit::ColumnWidths widths) {
    widths_ = std::move(widths);
    widths_.wanted.resize(widths_.pixels.size());
    for (int column = 0; memory_ != nullptr && column < static_cast<int>(widths_.pixels.size()); ++column) {
        if (const auto kept = memory_->widthOf(name_, captionOf(column))) {
            fix(column, *kept);
        }
    }
    updateGeometry();
    distribute();
}

void GridTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    distribute();
}

void GridTable::distribute() {
    distributing_ = true;
    const std::vector<int> sizes = toolkit::fitted(widths_, viewport()->width());
    for (int i = 0; i < static_cast<int>(sizes.size()); ++i) {
        setColumnWidth(i, sizes[static_cast<std::size_t>(i)]);
    }
    distributing_ = false;
}

QSize GridTable::sizeHint() const {
    return {std::clamp(widths_.total() + 24, 240, 1100), rowHeight() * (lines_ > 1 ? lines_ + 1 : 9) + 4};
}

QSize GridTable::minimumSizeHint() const {
    return {160, rowHeight() * 4 + 4};
}

}  // namespace velmora::qt
