#include "velmora/adapters/qt/explanations.h"

#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>
#include <string>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {

/// An error cannot be shown in a tool tip: it is reported after the event, and the plain tool tip is shown.
std::string explanationOf(ViewHost& host, const screen::Control& control) {
    try {
        return control.explanation ? control.explanation() : std::string();
    } catch (...) {
        host.reportLater(std::current_exception());
        return {};
    }
}

}  // namespace

bool showExplanation(ViewHost& host, const screen::Control& control, const QHelpEvent& event, QWidget& widget) {
    const std::string explanation = explanationOf(host, control);
    if (control.warning().empty() && explanation.empty()) {
        return false;
    }
    const std::string& rest = explanation.empty() ? control.toolTip() : explanation;
    const std::string between = control.warning().empty() || rest.empty() ? "" : "\n";
    QToolTip::showText(
        event.globalPos(),
        toQt(control.warning() + between + rest).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")),
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
