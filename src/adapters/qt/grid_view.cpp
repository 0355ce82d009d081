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
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/form.h"

namespace velmora::qt {

GridView::GridView(ViewHost& host, screen::DataGrid& grid, const screen::Layout& layout, QWidget* parent)
    : ControlView(host, grid),
      grid_(grid),
      box_(new QWidget(parent)),
      table_(new GridTable(layout.lines, box_)),
      count_(new QLabel(box_)),
      model_(new GridModel(
          grid, [this](std::exception_ptr error) { this->host().reportLater(error); }, this)) {
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

// The widest column of text takes the room that is left over, so that numbers stay together.
void GridView::setWidths() {
    std::vector<int> widths;
    int stretching = -1;
    for (int i = 0; i < model_->columnCount(); ++i) {
        const screen::GridColumn& shape = model_->shape(i);
        const QFontMetrics letters = table_->fontMetrics();
        const int padding = 2 * theme::unit + 4;
        const int caption = letters.horizontalAdvance(toQt(shape.caption)) + padding;
        // A date that is cut looks like another one.
        const int date =
            shape.mask == "dd/mm/yyyy" ? letters.horizontalAdvance(QStringLiteral("00/00/0000")) + padding : 0;
        widths.push_back(std::max({shape.width / theme::twipsPerPixel, caption, date}));
        const bool text = !shape.right && !shape.button;
        if (text && (stretching < 0 || widths.back() > widths[static_cast<std::size_t>(stretching)])) {
            stretching = i;
        }
    }
    table_->setWidths(std::move(widths), stretching);
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

// The row under the mouse by all that it shows.
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

void GridView::clicked(const QModelIndex& index) {
    if (host().acceptsInput()) {
        pressCell(index);
    }
}

void GridView::pressCell(const QModelIndex& index) {
    if (!index.isValid() || !model_->shape(index.column()).button) {
        return;
    }
    const int column = model_->gridColumn(index.column());
    host().feed([&] {
        if (grid_.form().activeControl() == &grid_) {
            grid_.onButtonClick(column);
        }
    });
}

bool GridView::key(const KeyStroke& stroke) {
    if (stroke.character == U' ' && table_->currentIndex().isValid()) {
        pressCell(table_->currentIndex());
        return true;
    }
    screen::KeyDown event{stroke.key, stroke.shift};
    grid_.onKeyDown(event);
    return true;
}

bool GridView::otherEvent(QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<QKeyEvent&>(event).key();
    if (key == Qt::Key_Home || key == Qt::Key_End) {
        jumpTo(key == Qt::Key_End);
        return true;
    }
    return false;
}

// The set finds its own last row; the table need not know all rows before it.
void GridView::jumpTo(bool last) {
    host().feed([&] {
        sql::Recordset rows = grid_.recordset();
        if (rows.isOpen() && rows.hasRows()) {
            last ? rows.moveLast() : rows.moveFirst();
        }
    });
}

void GridView::showCount() {
    const auto number = [](int value) { return toQt(runtime::Format(value, "#,##0")); };
    const int rows = model_->rowCount();
    const QString many = number(rows);
    const QString noun = rows == 1 ? QStringLiteral("fila") : QStringLiteral("filas");
    const int current = table_->currentIndex().row();
    const QString total =
        model_->isComplete() ? many + QLatin1Char(' ') + noun : QStringLiteral("más de %1 %2").arg(many, noun);
    count_->setText(current < 0 ? total : QStringLiteral("Fila %1 de %2").arg(number(current + 1), total));
}

}  // namespace velmora::qt
