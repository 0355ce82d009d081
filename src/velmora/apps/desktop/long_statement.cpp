#include "velmora/apps/desktop/long_statement.h"

#include <QApplication>

namespace velmora::desktop {

namespace {

constexpr int betweenLooks = 50;  ///< milliseconds
constexpr const char* wordsOfWaiting =
    "La consulta tarda más de lo habitual. Puede esperar, o cancelarla: el formulario queda como estaba.";

}  // namespace

LongStatement::LongStatement() : window_(QStringLiteral("Consulta en marcha"), QApplication::activeWindow(), 0) {
    window_.show(wordsOfWaiting, std::nullopt);
    sinceShown_.start();
}

bool LongStatement::mayGoOn() {
    if (sinceShown_.elapsed() >= betweenLooks) {
        window_.show(wordsOfWaiting, std::nullopt);
        sinceShown_.restart();
    }
    return !window_.cancelled();
}

}  // namespace velmora::desktop
