#include "velmora/platform/toolkit/grid_columns.h"

#include <algorithm>
#include <string_view>

namespace velmora::toolkit {

namespace {
constexpr std::string_view dateMask = "dd/mm/yyyy";
constexpr std::string_view widestDate = "00/00/0000";
}  // namespace

ColumnWidths columnWidths(const GridRows& rows, const std::function<int(const std::string&)>& advance, int padding) {
    ColumnWidths widths;
    for (std::size_t i = 0; i < rows.columnCount(); ++i) {
        const screen::GridColumn& shape = rows.shape(i);
        const int date = shape.mask == dateMask ? advance(std::string(widestDate)) + padding : 0;
        widths.pixels.push_back(std::max({shape.width / twipsPerPixel, advance(shape.caption) + padding, date}));
        const bool text = !shape.right && !shape.button;
        if (text && (widths.stretching < 0 ||
                     widths.pixels.back() > widths.pixels[static_cast<std::size_t>(widths.stretching)])) {
            widths.stretching = static_cast<int>(i);
        }
    }
    return widths;
}

}  // namespace velmora::toolkit
