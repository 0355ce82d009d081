#pragma once
// Widths of a grid's columns.

#include <functional>
#include <string>
#include <vector>

#include "velmora/platform/toolkit/grid_rows.h"

namespace velmora::toolkit {

/// Widths of columns and windows are given in twips. Twips per pixel at 100 %.
inline constexpr int twipsPerPixel = 15;

struct ColumnWidths {
    std::vector<int> pixels;  ///< one per visible column
    int stretching = -1;      ///< the column that takes the remaining width; none: -1
};

/// A column is at least as wide as its caption, and a date column as a date, because a truncated date would read as
/// another one; both plus `padding` pixels. The widest text column stretches, which keeps the number columns together.
/// `advance` gives the width of a text in the table's font, in pixels.
ColumnWidths columnWidths(const GridRows& rows, const std::function<int(const std::string&)>& advance, int padding);

}  // namespace velmora::toolkit
