#include "velmora/adapters/qt/grid_view.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "velmora/adapters/qt/grid_delegate.h"
#include "velmora/adapters/qt/grid_table.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/grid_columns.h"
#include "velmora/platform/toolkit/grid_keys.h"

namespace velmora::qt {

namespace {

std::optional<toolkit::RowMove> rowMoveOf(int key) {
    using toolkit::RowMove;
    switch (key) {
        case Qt::Key_Up:
            return RowMove::up;
        case Qt::Key_Down:
            return RowMove::down;
        case Qt::Key_PageUp:
            return RowMove::pageUp;
        case Qt::Key_PageDown:
            return RowMove::pageDown;
        case Qt::Key_Home:
            return RowMove::first;
        case Qt::Key_End:
            return RowMove::last;
        default:
            return std::nullopt;
    }
}

}  // namespace

GridView::GridView(ViewHost& host, screen::DataGrid& grid, const screen::Layout& layout, QWidget* parent)
    : ControlView(host, grid),
      grid_(grid),
      box_(new QWidget(parent)),
      table_(new GridTable(layout.lines, box_)),
      count_(new QLabel(box_)),
      model_(new GridModel(
          grid, [this](const std::exception_ptr& error) { this->host().reportLater(error); }, this)) {
    auto* column = new QVBoxLayout(box_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(table_, 1);
    column->addWidget(count_);
    count_->setAlignment(Qt::AlignRight);
    box_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    table_->setModel(model_);
    table_->setItemDelegate(new GridDelegate(*model_, this));
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { userMoved(current.row()); });
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) { clicked(index); });
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) { clickedTwice(index); });
    table_->remember(host.memory(), toQt(grid.form().name() + " " + grid.fullName()));
    connect(model_, &QAbstractItemModel::rowsInserted, this, [this] { showCount(); });
}

QWidget& GridView::focusTarget() {
    return *table_;
}

std::vector<QWidget*> GridView::inputs() {
    return {table_, table_->viewport()};
}

void GridView::setAccessibleName(const QString& name) {
    table_->setAccessibleName(name);
}

void GridView::update(screen::Property property) {
    switch (property) {
        case screen::Property::columns:
        case screen::Property::rows:
            reload();
            break;
        case screen::Property::currentRow:
            bringRow();
            break;
        default:
            ControlView::update(property);
    }
}

void GridView::updateAll() {
    ControlView::updateAll();
    reload();
}

void GridView::reload() {
    fromModel_ = true;
    const int scrolled = table_->verticalScrollBar()->value();
    model_->reload();
    setWidths();
    if (scrolled > 0) {
        model_->ensureRow(static_cast<std::size_t>(scrolled) + 40);
        table_->verticalScrollBar()->setValue(scrolled);
    }
    fromModel_ = false;
    bringRow();
}

void GridView::setWidths() {
    const auto advance = [&](const std::string& text) { return table_->fontMetrics().horizontalAdvance(toQt(text)); };
    toolkit::ColumnWidths widths = toolkit::columnWidths(model_->rows(), advance, 2 * theme::unit + 4);
    table_->setWidths(std::move(widths));
}

void GridView::bringRow() {
    const auto position = grid_.recordset().isOpen() ? grid_.recordset().position() : std::nullopt;
    fromModel_ = true;
    if (position) {
        model_->ensureRow(*position);
        const int column = std::max(table_->currentIndex().column(), 0);
        const QModelIndex index = model_->index(static_cast<int>(*position), column);
        if (table_->currentIndex() != index) {
            table_->setCurrentIndex(index);
        }
    } else {
        table_->clearSelection();
        table_->selectionModel()->clearCurrentIndex();
    }
    fromModel_ = false;
    showCount();
}

// Identifies the row under the mouse by all its shown values.
QString GridView::aimOf(const QMouseEvent& press) const {
    const int row = table_->indexAt(press.position().toPoint()).row();
    QStringList cells;
    for (int column = 0; row >= 0 && column < model_->columnCount(); ++column) {
        cells.append(model_->index(row, column).data().toString());
    }
    return cells.join(QLatin1Char('\t'));
}

void GridView::userMoved(int row) {
    if (fromModel_ || row < 0) {
        return;
    }
    host().feed([&] { grid_.moveToRow(static_cast<std::size_t>(row)); });
    bringRow();
}

bool GridView::hasButton(const QModelIndex& index) const {
    return model_->rows().hasButton(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
}

// Chosen C-480: a double click presses the first button that the row has; where it meets a button, its first press has
// already done what the button does.
void GridView::clickedTwice(const QModelIndex& index) {
    if (!host().acceptsInput() || !index.isValid() || hasButton(index)) {
        return;
    }
    host().feed([&] {
        if (grid_.form().activeControl() == &grid_) {
            toolkit::pressRow(grid_);
        }
    });
}

void GridView::clicked(const QModelIndex& index) {
    if (!host().acceptsInput() || !index.isValid() || !hasButton(index)) {
        return;
    }
    host().feed([&] {
        if (grid_.form().activeControl() == &grid_) {
            toolkit::pressCell(grid_, gridColumn(index));
        }
    });
}

std::size_t GridView::gridColumn(const QModelIndex& index) const {
    return model_->rows().gridColumn(static_cast<std::size_t>(index.column()));
}

bool GridView::key(const KeyStroke& stroke) {
    const QModelIndex current = table_->currentIndex();
    toolkit::keyInGrid(grid_, stroke, current.isValid() ? std::optional(gridColumn(current)) : std::nullopt);
    return true;
}

bool GridView::otherEvent(QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const std::optional<toolkit::RowMove> move = rowMoveOf(static_cast<QKeyEvent&>(event).key());
    if (move) {
        host().feed([&] { toolkit::moveRow(grid_, *move, page(*move)); });
    }
    return move.has_value();
}

// Downward a page ends with the row cut by the lower edge.
std::size_t GridView::page(toolkit::RowMove move) const {
    const int cut = move == toolkit::RowMove::pageDown ? table_->rowHeight() - 1 : 0;
    return static_cast<std::size_t>(std::max((table_->viewport()->height() + cut) / table_->rowHeight(), 1));
}

void GridView::showCount() {
    const int current = table_->currentIndex().row();
    const auto row = current < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(current));
    count_->setText(toQt(toolkit::countText(row, model_->rows().known())));
}

}  // namespace velmora::qt
