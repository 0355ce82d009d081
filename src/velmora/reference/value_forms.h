#pragma once
// What the forms of values, of the doubles and of the gears, have in common.

#include <string_view>
#include <vector>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::reference {

/// How a value that is worked out, or read from its table, is shown.
inline constexpr const char* valueMask = "0.00";

/// Tells that a row of values was not written, with number and description of the error.
void showCancelledWrite(screen::Screen& screen, const runtime::RuntimeError& error);

/// A column for each of the set's, in its order, called by its name without the table's prefix and right-aligned, as
/// numbers are. The width is in twips.
std::vector<screen::GridColumn> columnsWithoutPrefix(const sql::Recordset& rows, std::string_view prefix, int width);

}  // namespace velmora::reference
