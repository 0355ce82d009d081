#include "velmora/adapters/qt/theme.h"

#include <QPalette>
#include <QToolTip>

#include "velmora/adapters/painting/fonts.h"
#include "velmora/adapters/qt/style.h"
#include "velmora/platform/toolkit/field_ground.h"

namespace velmora::qt::theme {

namespace {

QPalette palette() {
    QPalette p{QColor(window)};
    for (const auto state : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        p.setColor(state, QPalette::Window, QColor(window));
        p.setColor(state, QPalette::WindowText, QColor(caption));
        p.setColor(state, QPalette::Base, QColor(entered));
        p.setColor(state, QPalette::AlternateBase, QColor(entered));
        p.setColor(state, QPalette::Text, QColor(text));
        p.setColor(state, QPalette::Button, QColor(entered));
        p.setColor(state, QPalette::ButtonText, QColor(text));
        p.setColor(state, QPalette::Highlight, QColor(accent));
        p.setColor(state, QPalette::HighlightedText, Qt::white);
        p.setColor(state, QPalette::ToolTipBase, QColor(entered));
        p.setColor(state, QPalette::ToolTipText, QColor(text));
        p.setColor(state, QPalette::PlaceholderText, QColor(faintText));
    }
    p.setColor(QPalette::Disabled, QPalette::WindowText, QColor(faintText));
    p.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(disabledText));
    return p;
}

QColor backgroundOf(const screen::Control& control, screen::Role role) {
    switch (toolkit::groundOf(control, role)) {
        case toolkit::Ground::entered:
            return QColor(entered);
        case toolkit::Ground::calculated:
            return QColor(calculated);
        case toolkit::Ground::focus:
            return QColor(focus);
        case toolkit::Ground::own:
            return fromModel(control.backColor());
        case toolkit::Ground::none:
            break;
    }
    return Qt::transparent;
}

}  // namespace

void apply(QApplication& application) {
    QApplication::setStyle(new Style);
    QApplication::setPalette(palette());
    QApplication::setFont(painting::baseFont());
    QToolTip::setPalette(palette());
    application.setAttribute(Qt::AA_DontUseNativeMenuBar);
}

QFont totalFont() {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 1.7);
    font.setBold(true);
    return font;
}

QFont titleFont() {
    QFont font = QApplication::font();
    font.setWeight(QFont::DemiBold);
    return font;
}

QColor fromModel(screen::Color color) {
    return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

void paintField(QWidget& field, const screen::Control& control, screen::Role role) {
    const QColor background = backgroundOf(control, role);
    QPalette palette = field.palette();
    const QColor letters = fromModel(control.foreColor());
    if (palette.color(QPalette::Active, QPalette::Base) == background &&
        palette.color(QPalette::Active, QPalette::Text) == letters) {
        return;
    }
    for (const auto state : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(state, QPalette::Base, background);
        palette.setColor(state, QPalette::Text, letters);
        palette.setColor(state, QPalette::ButtonText, letters);
    }
    field.setPalette(palette);
}

}  // namespace velmora::qt::theme
