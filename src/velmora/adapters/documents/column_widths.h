#pragma once
// Distribution of a page's width among columns.

#include <optional>
#include <vector>

namespace velmora::documents {

struct ColumnRoom {
    double share = 1;  ///< relative share of the width
    double least = 0;  ///< width of the column's widest number
};

/// The widths of the columns, which add up to `width`: by their shares, but none below its least; the difference is
/// taken from the others. nullopt when the least widths add up to more than `width`.
std::optional<std::vector<double>> divideWidth(double width, const std::vector<ColumnRoom>& columns);

}  // namespace velmora::documents
