#pragma once
// Shared by the forms of values, of doubles and of gears.

#include <span>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::reference {

/// The display mask of a value that is computed or read from its table.
inline constexpr const char* valueMask = "0.00";

/// Shows that a row of values was not written, with number and description of the error.
void showCancelledWrite(screen::Screen& screen, const runtime::RuntimeError& error);

/// One right-aligned column for each column of the set, in its order, titled by its name without the table's prefix.
/// The width is in twips.
std::vector<screen::GridColumn> columnsWithoutPrefix(const std::vector<sql::Column>& shown, std::string_view prefix,
                                                     int width);

/// What the letter of a field means.
struct Meaning {
    int field;  ///< index of Text1
    const char* text;
};

/// Tells the meanings in the tooltips and hints of the fields.
void explain(const screen::ControlArray<screen::TextBox>& fields, std::span<const Meaning> meanings);

}  // namespace velmora::reference
