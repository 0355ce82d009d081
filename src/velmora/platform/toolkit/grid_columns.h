#pragma once
// How wide the columns of a grid stand.

#include <functional>
#include <string>
#include <vector>

#include "velmora/platform/toolkit/grid_rows.h"

namespace velmora::toolkit {

/// Widths of columns and windows are told in twips; so many make a pixel at 100 %.
inline constexpr int twipsPerPixel = 15;

struct ColumnWidths {
    std::vector<int> pixels;  ///< one a visible column
    int stretching = -1;      ///< the column that takes the width that is left over; none: -1
};

/// No column is narrower than its caption, nor one of dates than a date, which would look like another one when cut;
/// both with `padding` pixels beside them. The widest column of text stretches, so that numbers stay together.
/// `advance` tells the width of a text in the table's font, in pixels.
ColumnWidths columnWidths(const GridRows& rows, const std::function<int(const std::string&)>& advance, int padding);

}  // namespace velmora::toolkit
