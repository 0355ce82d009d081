#include "velmora/adapters/qt/explanations.h"

#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>
#include <string>

#include "velmora/adapters/qt/text.h"
#include "velmora/platform/toolkit/tool_tip_text.h"

namespace velmora::qt {

namespace {

/// An error cannot be shown in a tool tip: it is reported after the event, and the plain tool tip is shown.
std::string toolTipOf(ViewHost& host, const screen::Control& control) {
    try {
        return toolkit::toolTipTextOf(control);
    } catch (...) {
        host.reportLater(std::current_exception());
        return control.toolTip();
    }
}

}  // namespace

bool showExplanation(ViewHost& host, const screen::Control& control, const QHelpEvent& event, QWidget& widget) {
    const std::string text = toolTipOf(host, control);
    if (text == control.toolTip()) {
        return false;
    }
    QToolTip::showText(event.globalPos(), toQt(text).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")),
                       &widget);
    return true;
}

void addQuestion(ViewHost& host, screen::Control& control, QMenu& menu) {
    if (control.onExplain) {
        menu.addSeparator();
        menu.addAction(QStringLiteral("¿Por qué este valor?"), &menu,
                       [&host, &control] { host.feed([&control] { control.onExplain(); }); });
    }
}

}  // namespace velmora::qt
