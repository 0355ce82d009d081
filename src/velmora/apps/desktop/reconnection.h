#pragma once
// What the desktop does when the connection to its server is lost.

#include "velmora/adapters/odbc/database.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::desktop {

/// When an operation has met the loss of the connection since the last call: asks whether to connect again, and again
/// with the reason for as long as that fails and the user says yes. The forms stay as they are. To be called between
/// the user's actions, when no operation is under way.
void offerToReconnect(odbc::ServerConnection& connection, screen::Screen& screen);

}  // namespace velmora::desktop
