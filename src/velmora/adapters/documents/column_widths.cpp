#include "velmora/adapters/documents/column_widths.h"

#include <cstddef>

namespace velmora::documents {

std::optional<std::vector<double>> divideWidth(double width, const std::vector<ColumnRoom>& columns) {
    double leasts = 0;
    for (const ColumnRoom& column : columns) {
        leasts += column.least;
    }
    if (leasts > width) {
        return std::nullopt;
    }
    std::vector<double> widths(columns.size());
    std::vector<bool> atLeast(columns.size());
    for (bool again = true; again;) {
        again = false;
        double rest = width;
        double shares = 0;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (atLeast[i]) {
                rest -= columns[i].least;
            } else {
                shares += columns[i].share;
            }
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            widths[i] = atLeast[i] ? columns[i].least : rest * columns[i].share / shares;
            if (widths[i] < columns[i].least) {
                atLeast[i] = again = true;
            }
        }
    }
    return widths;
}

}  // namespace velmora::documents
