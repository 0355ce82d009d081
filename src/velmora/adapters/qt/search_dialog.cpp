#include "velmora/adapters/qt/search_dialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "velmora/adapters/qt/grid_table.h"
#include "velmora/adapters/qt/search_model.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/adapters/qt/window_memory.h"
#include "velmora/platform/toolkit/grid_columns.h"

namespace velmora::qt {

namespace {

constexpr int visibleRows = 16;
constexpr int leastColumn = 90;

int columnWidth(int twips) {
    return std::max(twips / toolkit::twipsPerPixel, leastColumn);
}

bool movesInList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

SearchDialog::SearchDialog(const screen::SearchWindow& window, QWidget* parent, WindowMemory* memory)
    : QDialog(parent),
      model_(new SearchModel(window, this)),
      box_(new QLineEdit(this)),
      table_(new GridTable(visibleRows, this)),
      count_(new QLabel(this)),
      memory_(memory) {
    setWindowTitle(toQt(window.title));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::group, theme::group, theme::group, theme::group);
    column->setSpacing(theme::unit);
    auto* filterRow = new QHBoxLayout;
    auto* caption = new QLabel(QStringLiteral("&Buscar"), this);
    caption->setBuddy(box_);
    filterRow->addWidget(caption);
    filterRow->addWidget(box_, 1);
    column->addLayout(filterRow);
    column->addWidget(table_, 1);
    auto* bottom = new QHBoxLayout;
    auto* accept = new QPushButton(QStringLiteral("&Aceptar"), this);
    auto* cancel = new QPushButton(QStringLiteral("&Cancelar"), this);
    bottom->addWidget(count_, 1);
    bottom->addWidget(accept);
    bottom->addWidget(cancel);
    column->addLayout(bottom);

    box_->setAccessibleName(toQt("Buscar en " + window.secondCaption));
    box_->installEventFilter(this);
    box_->setFocus();
    table_->setModel(model_);
    table_->setFocusPolicy(Qt::NoFocus);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->remember(memory_, windowTitle());
    table_->setWidths({.pixels = {columnWidth(window.firstWidth), columnWidth(window.secondWidth)}, .stretching = 1});
    QPalette rows = table_->palette();
    rows.setColor(QPalette::Highlight, QColor(theme::currentRow));
    rows.setColor(QPalette::HighlightedText, QColor(theme::text));
    table_->setPalette(rows);
    QPalette typing = box_->palette();
    typing.setColor(QPalette::Base, QColor(theme::focus));
    box_->setPalette(typing);
    accept->setDefault(true);
    connect(box_, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
    connect(table_, &QTableView::doubleClicked, this, [this] { take(); });
    connect(accept, &QPushButton::clicked, this, [this] { take(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(model_, &QAbstractItemModel::rowsInserted, this, [this] { showCount(); });
    filter({});
    settlePlace();
}

void SearchDialog::settlePlace() {
    const QRect room = QWidget::screen()->availableGeometry();
    const auto kept = memory_ != nullptr ? memory_->placeOf(windowTitle()) : std::nullopt;
    if (const auto shown = kept ? whollyShown(kept->area, {room}) : std::nullopt) {
        resize(shown->size());
        move(shown->topLeft());
    } else {
        resize(within(QRect(QPoint(), sizeHint()), room).size());
    }
}

std::exception_ptr SearchDialog::failure() const {
    return model_->failure();
}

std::optional<std::size_t> SearchDialog::choose() {
    exec();
    if (memory_ != nullptr) {
        memory_->keepPlace(windowTitle(), {.area = QRect(pos(), size())});
    }
    return chosen_;
}

void SearchDialog::filter(const QString& text) {
    model_->setFilter(text);
    if (model_->rowCount() > 0) {
        table_->setCurrentIndex(model_->index(0, 0));
    }
    showCount();
    if (model_->failure()) {
        reject();
    }
}

void SearchDialog::take() {
    const QModelIndex current = table_->currentIndex();
    if (current.isValid()) {
        chosen_ = model_->sourceRow(current.row());
        accept();
    }
}

void SearchDialog::showCount() {
    const int rows = model_->rowCount();
    const QString noun = rows == 1 ? QStringLiteral("fila") : QStringLiteral("filas");
    count_->setText(QStringLiteral("%1%2 %3")
                        .arg(model_->isComplete() ? QString() : QStringLiteral("más de "))
                        .arg(rows)
                        .arg(noun));
}

bool SearchDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (movesInList(key->key())) {
            QKeyEvent copy(QEvent::KeyPress, key->key(), key->modifiers());
            QCoreApplication::sendEvent(table_, &copy);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace velmora::qt
