#pragma once
// One row written to a table of reference data as a whole, or not at all, and how a refusal is told.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"

namespace velmora::reference {

inline constexpr const char* lineBreak = "\r\n";

/// Runs `work` in a transaction and commits. None on success; otherwise the error that ended it, with the table as
/// it was, no transaction open and no field left over for the next write.
std::optional<runtime::RuntimeError> inTransaction(session::Session& session, const std::function<void()>& work);

/// Runs the INSERT, the UPDATE of the fields that were added. Errors: the session's refusal, as the provider's failure.
void insertRow(session::Session& session, std::string_view donde);
void updateRow(session::Session& session, std::string_view donde);

/// Tells that a row of values was not written, with number and description of the error.
void showCancelledWrite(screen::Screen& screen, const runtime::RuntimeError& error);

/// A column for each of the set's, in its order, called by its name without the table's prefix. Names of the table
/// itself are right-aligned: they are numbers. The width is in twips.
std::vector<screen::GridColumn> columnsWithoutPrefix(const sql::Recordset& rows, std::string_view prefix, int width);

/// Keys that the forms of values have in common: Enter moves on, Esc closes, the pad's point is the comma.
void passValueFormKeys(screen::Form& form, screen::KeyDown& key);

}  // namespace velmora::reference
