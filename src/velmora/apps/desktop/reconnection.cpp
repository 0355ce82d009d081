#include "velmora/apps/desktop/reconnection.h"

#include <optional>
#include <string>

#include "velmora/platform/sql/db_error.h"

namespace velmora::desktop {

namespace {

bool wantsToConnect(screen::Screen& screen, const std::string& reason) {
    return screen.show({.text = reason + "\n\n¿Desea conectar de nuevo?",
                        .icon = screen::Icon::exclamation,
                        .buttons = screen::Buttons::yesNo,
                        .title = "VELMORA"}) == screen::Answer::yes;
}

/// Why it failed; none when the connection is there again.
std::optional<std::string> reconnect(odbc::ServerConnection& connection, screen::Screen& screen) {
    screen.setPointer(screen::Pointer::hourglass);
    std::optional<std::string> reason;
    try {
        connection.reconnect();
    } catch (const sql::DbError& error) {
        reason = error.description();
    }
    screen.setPointer(screen::Pointer::normal);
    return reason;
}

}  // namespace

void offerToReconnect(odbc::ServerConnection& connection, screen::Screen& screen) {
    std::optional<std::string> reason;
    if (connection.takeLoss()) {
        reason = "Se ha perdido la conexión con la base de datos. Lo que hay en las ventanas sigue ahí.";
    }
    while (reason && wantsToConnect(screen, *reason)) {
        reason = reconnect(connection, screen);
    }
}

}  // namespace velmora::desktop
