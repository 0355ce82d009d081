#pragma once
// Upgrades the tables of an older database to the columns that the forms need. There is no version table: every start
// checks the tables themselves, which costs one query per table when they are up to date.

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::shell {

/// Adds the missing column of PARDPI. A failing ALTER shows a message; a failing check (no table, no connection) raises
/// its error.
void msActualizarPARDPI(sql::Connection& connection, screen::Screen& screen);

/// Adds the missing columns of DPI in one statement, all or none. Failures as in msActualizarPARDPI.
void msActualizarDPI(sql::Connection& connection, screen::Screen& screen);

/// Both of the above, then creates ENG and its key when the table is missing. True when all steps succeeded.
bool FnActualizarBD(sql::Connection& connection, screen::Screen& screen);

}  // namespace velmora::shell
