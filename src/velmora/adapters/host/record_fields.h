#pragma once
// The columns of one row shown in text boxes that nobody can write in.

#include <span>
#include <vector>

#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/layout.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::host {

/// A column of a row as a box shows it.
struct RecordField {
    const char* column;
    const char* caption;
    int width = 0;  ///< in digits; 0 takes the room that is left
    const char* mask = "";
    const char* unit = "";
};

using Boxes = screen::ControlArray<screen::TextBox>;

/// Box i shows field i of the current row; all are empty without one. Errors: 3265 for a column that the row lacks.
void showRecord(const Boxes& boxes, std::span<const RecordField> fields, const sql::Recordset& row);

/// Box i under its caption, for reading only. A field with a mask of digits stands right-aligned.
screen::Layout recordField(const Boxes& boxes, std::span<const RecordField> fields, int i);

/// The boxes from one to another side by side.
screen::Layout recordRow(const Boxes& boxes, std::span<const RecordField> fields, int from, int to);

/// Every box, by rising index, behind what the tab order holds already.
void addTabStops(std::vector<screen::Control*>& order, const Boxes& boxes);

}  // namespace velmora::host
