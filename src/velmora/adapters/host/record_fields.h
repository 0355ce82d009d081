#pragma once
// The columns of one row, shown in read-only text boxes.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/layout.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::host {

/// A column of a row and how a box shows it.
struct RecordField {
    const char* column;
    const char* caption;
    int width = 0;  ///< in digits; 0: the remaining width
    const char* mask = "";
    const char* unit = "";
};

/// Lengths in mm, in the lists of both forms.
inline constexpr const char* measureMask = "#,##0.00";

/// A number as it stands in a statement or a caption.
std::string numberText(std::int32_t number);

using Boxes = screen::ControlArray<screen::TextBox>;

/// Box i shows field i of the current row; all boxes are empty without a current row. Errors: 3265 for a column that
/// the row lacks.
void showRecord(const Boxes& boxes, std::span<const RecordField> fields, const sql::Recordset& row);

/// Box i under its caption, read-only. A field with a mask of digits is right-aligned.
screen::Layout recordField(const Boxes& boxes, std::span<const RecordField> fields, int i);

/// The boxes `from` to `to`, side by side.
screen::Layout recordRow(const Boxes& boxes, std::span<const RecordField> fields, int from, int to);

/// Appends every box in order of index to the tab order.
void addTabStops(std::vector<screen::Control*>& order, const Boxes& boxes);

}  // namespace velmora::host
