#include "velmora/platform/toolkit/grid_columns.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace velmora::toolkit {

namespace {
constexpr std::string_view dateMask = "dd/mm/yyyy";
constexpr std::string_view widestDate = "00/00/0000";
}  // namespace

int ColumnWidths::total() const {
    return std::accumulate(pixels.begin(), pixels.end(), 0);
}

std::vector<int> fitted(const ColumnWidths& widths, int room) {
    std::vector<int> sizes = widths.pixels;
    int spare = std::max(room - widths.total(), 0);
    for (std::size_t i = 0; i < std::min(sizes.size(), widths.wanted.size()); ++i) {
        const int more = std::clamp(widths.wanted[i] - sizes[i], 0, spare);
        sizes[i] += more;
        spare -= more;
    }
    if (widths.stretching >= 0) {
        sizes[static_cast<std::size_t>(widths.stretching)] += spare;
    }
    return sizes;
}

ColumnWidths columnWidths(const GridRows& rows, const std::function<int(const std::string&)>& advance, int padding) {
    ColumnWidths widths;
    for (std::size_t i = 0; i < rows.columnCount(); ++i) {
        const screen::GridColumn& shape = rows.shape(i);
        const int date = shape.mask == dateMask ? advance(std::string(widestDate)) + padding : 0;
        widths.pixels.push_back(std::max({shape.width / twipsPerPixel, advance(shape.caption) + padding, date}));
        int widest = widths.pixels.back();
        for (std::size_t row = 0; row < std::min(rows.known().rows, measuredRows); ++row) {
            widest = std::max(widest, advance(rows.text(row, i)) + padding);
        }
        widths.wanted.push_back(widest);
        const bool text = !shape.right && !shape.button;
        if (text && (widths.stretching < 0 ||
                     widths.pixels.back() > widths.pixels[static_cast<std::size_t>(widths.stretching)])) {
            widths.stretching = static_cast<int>(i);
        }
    }
    return widths;
}

}  // namespace velmora::toolkit
