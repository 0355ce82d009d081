#include "velmora/apps/desktop/no_display.h"

#include <QString>
#include <cstdlib>
#include <iostream>
#include <string>

namespace velmora::desktop {

namespace {

constexpr const char* withoutDisplay =
    "velmora: no hay una pantalla donde abrir las ventanas.\n"
    "Inicie el programa desde un escritorio, o compruebe DISPLAY o WAYLAND_DISPLAY.\n"
    "Sin pantalla: velmora --pictures CARPETA escribe imágenes de las ventanas; velmora-drive ejecuta guiones.\n";

/// What the toolkit has said so far. It tells first, as warnings, why it has no display, then ends with a fatal
/// message.
std::string& said() {
    static std::string lines;
    return lines;
}

void listen(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type != QtFatalMsg) {
        said() += message.toStdString() + '\n';
        return;
    }
    std::cerr << withoutDisplay;
    if (!said().empty()) {
        std::cerr << "Detalles del sistema:\n" << said();
    }
    std::cerr << std::flush;
    std::_Exit(noDisplay);
}

}  // namespace

DisplayNeeded::DisplayNeeded() : before_(qInstallMessageHandler(listen)) {}

DisplayNeeded::~DisplayNeeded() {
    qInstallMessageHandler(before_);
    std::cerr << said();
}

}  // namespace velmora::desktop
