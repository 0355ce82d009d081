#pragma once
// Widths of a grid's columns.

#include <functional>
#include <string>
#include <vector>

#include "velmora/platform/toolkit/grid_rows.h"

namespace velmora::toolkit {

/// Widths of columns and windows are given in twips. Twips per pixel at 100 %.
inline constexpr int twipsPerPixel = 15;
/// Number of rows whose texts are measured.
inline constexpr std::size_t measuredRows = 60;

struct ColumnWidths {
    std::vector<int> pixels;  ///< one per visible column
    /// For the texts of the first rows, one per visible column; a column gets it where the table is wide enough.
    std::vector<int> wanted = {};
    int stretching = -1;  ///< the column that takes the remaining width; none: -1

    int total() const;
};

/// The widths in a table of `room` pixels: what is left over the nominal widths goes to the columns whose texts are
/// longer, from left to right, and the rest to the one that stretches.
std::vector<int> fitted(const ColumnWidths& widths, int room);

/// A column is at least as wide as its caption, and a date column as a date, because a truncated date would read as
/// another one; both plus `padding` pixels. The wanted widths show the texts of the rows known so far, at most
/// `measuredRows`. The widest text column stretches, which keeps the number columns together.
/// `advance` gives the width of a text in the table's font, in pixels.
ColumnWidths columnWidths(const GridRows& rows, const std::function<int(const std::string&)>& advance, int padding);

}  // namespace velmora::toolkit
