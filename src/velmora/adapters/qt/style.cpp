#include "velmora/adapters/qt/style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

namespace {

constexpr double radius = 3;
constexpr int chevronRoom = 20;
constexpr int titleRoom = 6;

QRectF crisp(const QRect& rect, double penWidth) {
    const double inset = penWidth / 2;
    return QRectF(rect).adjusted(inset, inset, -inset, -inset);
}

constexpr const char* warnsProperty = "warns";

enum class Border { plain, focused, warns };

/// A flat button is the title of a menu: without frame and arrow.
const QStyleOptionButton* menuTitle(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::Flat) ? button : nullptr;
}

void drawFrame(QPainter& painter, const QRect& rect, Border border, const QBrush& fill) {
    const double width = border == Border::plain ? 1 : 2;
    const QRgb color = border == Border::focused ? theme::focusBorder
                       : border == Border::warns ? theme::warningBorder
                                                 : theme::border;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(color), width));
    painter.setBrush(fill);
    painter.drawRoundedRect(crisp(rect, width), radius, radius);
    painter.restore();
}

void drawChevron(QPainter& painter, const QRect& rect, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = QRectF(rect).center();
    painter.drawPolyline(
        QPolygonF({middle + QPointF(-3.5, -1.75), middle + QPointF(0, 1.75), middle + QPointF(3.5, -1.75)}));
    painter.restore();
}

Border borderOf(const QStyleOption& option, const QWidget* widget) {
    if (widget != nullptr && widget->property(warnsProperty).toBool()) {
        return Border::warns;
    }
    const bool focused = option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_Enabled);
    return focused ? Border::focused : Border::plain;
}

}  // namespace

void setWarns(QWidget& field, bool warns) {
    if (field.property(warnsProperty).toBool() != warns) {
        field.setProperty(warnsProperty, warns);
        field.update();
    }
}

Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
        case PE_PanelLineEdit: {
            const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            if (frame != nullptr && frame->lineWidth > 0) {
                drawFrame(*painter, option->rect, borderOf(*option, widget), option->palette.base());
            } else {
                painter->fillRect(option->rect, option->palette.base());
            }
            return;
        }
        case PE_FrameLineEdit:
        case PE_FrameFocusRect:
            return;
        case PE_Frame:
            drawFrame(*painter, option->rect, borderOf(*option, widget), Qt::NoBrush);
            return;
        case PE_PanelButtonCommand:
            drawButton(*option, *painter);
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawButton(const QStyleOption& option, QPainter& painter) const {
    const bool enabled = option.state.testFlag(State_Enabled);
    const bool down = option.state & (State_Sunken | State_On);
    const bool hover = enabled && option.state.testFlag(State_MouseOver);
    const QColor fill = !enabled ? QColor(theme::window)
                        : down   ? QColor(theme::pressed)
                                 : QColor(hover ? theme::hover : theme::entered);
    drawFrame(painter, option.rect, borderOf(option, nullptr), fill);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        combo != nullptr && control == CC_ComboBox) {
        drawComboBox(*combo, *painter, widget);
        return;
    }
    if (const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        group != nullptr && control == CC_GroupBox) {
        drawGroup(*group, *painter);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void Style::drawComboBox(const QStyleOptionComboBox& option, QPainter& painter, const QWidget* widget) const {
    drawFrame(painter, option.rect, borderOf(option, widget), option.palette.base());
    const bool enabled = option.state.testFlag(State_Enabled);
    drawChevron(painter, subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, nullptr),
                QColor(enabled ? theme::caption : theme::border));
}

void Style::drawGroup(const QStyleOptionGroupBox& option, QPainter& painter) const {
    const int titleHeight = option.text.isEmpty() ? 0 : option.fontMetrics.height() + titleRoom;
    painter.save();
    if (!option.text.isEmpty()) {
        painter.setFont(theme::titleFont());
        painter.setPen(QColor(theme::text));
        painter.drawText(option.rect.adjusted(1, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic,
                         option.text);
    }
    painter.setPen(QColor(theme::groupBorder));
    painter.setBrush(QColor(theme::groupGround));
    painter.setRenderHint(QPainter::Antialiasing);
    const int top = option.text.isEmpty() ? 0 : titleHeight - titleRoom / 2;
    painter.drawRoundedRect(crisp(option.rect.adjusted(0, top, 0, 0), 1), radius, radius);
    painter.restore();
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    const QStyleOptionButton* title = element == CE_PushButtonBevel ? menuTitle(option) : nullptr;
    if (title == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const bool open = title->state & (State_Sunken | State_On);
    if (open || (title->state.testFlag(State_Enabled) && title->state.testFlag(State_MouseOver))) {
        painter->fillRect(title->rect, QColor(open ? theme::pressed : theme::hover));
    }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
    const QRect all = option->rect;
    if (control == CC_ComboBox && part == SC_ComboBoxArrow) {
        return {all.right() - chevronRoom, all.top(), chevronRoom, all.height()};
    }
    if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
        return all.adjusted(4, 2, -chevronRoom, -2);
    }
    if (const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        group != nullptr && control == CC_GroupBox && part == SC_GroupBoxContents) {
        const int title = group->text.isEmpty() ? 0 : group->fontMetrics.height() + titleRoom / 2;
        return all.adjusted(1, title, -1, -1);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    const int field = option == nullptr ? 0 : option->fontMetrics.height() + 7;
    if (type == CT_PushButton && menuTitle(option) != nullptr) {
        result = QSize(size.width() + 3 * theme::unit, option->fontMetrics.height() + theme::unit);
    } else if (type == CT_PushButton) {
        result.setHeight(field + 3);
    } else if (type == CT_ComboBox) {
        result = QSize(size.width() + chevronRoom + 12, field);
    }
    return result;
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
    switch (hint) {
        case SH_ComboBox_Popup:
        case SH_MessageBox_CenterButtons:
        case SH_EtchDisabledText:
        case SH_DialogButtonLayout:  // affirmative first: Sí, No, Cancelar
            return 0;
        case SH_UnderlineShortcut:
            return 1;
        default:
            return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_DefaultFrameWidth:
            return 2;
        case PM_HeaderMargin:
            return theme::unit;
        case PM_FocusFrameHMargin:  // space left and right of a list's entry
            return theme::unit - 1;
        case PM_MenuButtonIndicator:
            return menuTitle(option) != nullptr ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
        case PM_ButtonDefaultIndicator:
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

}  // namespace velmora::qt
