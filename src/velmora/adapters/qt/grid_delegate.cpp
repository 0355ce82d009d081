#include "velmora/adapters/qt/grid_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "velmora/adapters/qt/grid_model.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/toolkit/painted_number.h"

namespace velmora::qt {

namespace {

constexpr int markWidth = 3;

QString fitted(const QString& text, const QFontMetrics& metrics, int room) {
    if (toolkit::decimalsOf(fromQt(text)) < 0) {
        return metrics.elidedText(text, Qt::ElideRight, room);
    }
    return toQt(toolkit::fittedNumber(fromQt(text), room,
                                      [&](const std::string& part) { return metrics.horizontalAdvance(toQt(part)); }));
}

}  // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool current = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->fillRect(option.rect, QColor(current ? theme::currentRow : theme::entered));
    painter->setPen(QColor(theme::rule));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (current && index.column() == 0) {
        painter->fillRect(QRect(option.rect.topLeft(), QSize(markWidth, option.rect.height())), QColor(theme::accent));
    }
    const QString text = model_.painted(index);
    const screen::GridColumn& shape = model_.shape(index.column());
    const bool button =
        model_.rows().hasButton(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
    if (button) {
        paintButton(*painter, option, text);
    } else if (shape.button) {
        // Nothing to open.
    } else {
        const QRect room = option.rect.adjusted(theme::unit, 0, -theme::unit, 0);
        painter->setPen(QColor(theme::text));
        painter->drawText(room, static_cast<int>(index.data(Qt::TextAlignmentRole).value<Qt::Alignment>().toInt()),
                          fitted(text, option.fontMetrics, room.width()));
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QColor(theme::focusBorder));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -2));
    }
    painter->restore();
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    const QString text = model_.painted(index);
    const bool cut = option.fontMetrics.horizontalAdvance(text) > option.rect.width() - 2 * theme::unit;
    if (event->type() == QEvent::ToolTip && cut) {
        QToolTip::showText(event->globalPos(), text, view);
        return true;
    }
    QToolTip::hideText();
    return false;
}

void GridDelegate::paintButton(QPainter& painter, const QStyleOptionViewItem& option, const QString& text) const {
    const QRectF face = QRectF(option.rect).adjusted(3.5, 2.5, -3.5, -3.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(theme::border));
    painter.setBrush(QColor(option.state.testFlag(QStyle::State_MouseOver) ? theme::hover : theme::window));
    painter.drawRoundedRect(face, 2, 2);
    painter.setPen(QColor(theme::text));
    painter.drawText(face, Qt::AlignCenter,
                     option.fontMetrics.elidedText(text, Qt::ElideRight, static_cast<int>(face.width()) - 4));
}

}  // namespace velmora::qt
