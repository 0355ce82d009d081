#pragma once
// Brings the tables of an older database up to the shape that the forms need. There is no version table: every
// start looks at the tables themselves, and on an up-to-date database each look is one query and nothing else.

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::shell {

/// Adds the missing column of PARDPI. A failing ALTER shows a message; a failing look (no table, no connection)
/// is raised.
void msActualizarPARDPI(sql::Connection& connection, screen::Screen& screen);

/// Adds the missing columns of DPI in one statement, all or none. Failures as in msActualizarPARDPI.
void msActualizarDPI(sql::Connection& connection, screen::Screen& screen);

/// Both of the above, then creates ENG and its key when the table is missing. True when it got to the end.
bool FnActualizarBD(sql::Connection& connection, screen::Screen& screen);

}  // namespace velmora::shell
