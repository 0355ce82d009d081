#pragma once
// How columns share the width of a page.

#include <optional>
#include <vector>

namespace velmora::documents {

struct ColumnRoom {
    double share = 1;  ///< of the width, among the columns' shares
    double least = 0;  ///< what its widest number takes
};

/// The widths of the columns, which together take the whole of `width`: by their shares, but none less than its least;
/// what that costs is taken from the others. None when the least widths together are more than there is.
std::optional<std::vector<double>> divideWidth(double width, const std::vector<ColumnRoom>& columns);

}  // namespace velmora::documents
