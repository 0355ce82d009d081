#include "velmora/adapters/host/record_fields.h"

#include <string_view>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/data_grid.h"

namespace velmora::host {

namespace lay = screen::layout;

namespace {

const RecordField& fieldOf(std::span<const RecordField> fields, int i) {
    return fields[static_cast<std::size_t>(i)];
}

bool isNumber(const RecordField& field) {
    return std::string_view(field.mask).find('0') != std::string_view::npos;
}

}  // namespace

std::string numberText(std::int32_t number) {
    return runtime::CStr(std::int64_t{number});
}

void showRecord(const Boxes& boxes, std::span<const RecordField> fields, const sql::Recordset& row) {
    for (int i = 0; i < static_cast<int>(fields.size()); ++i) {
        const RecordField& field = fieldOf(fields, i);
        boxes(i).setText(row.eof() ? std::string() : screen::shownUnder(row[field.column], field.mask));
    }
}

screen::Layout recordField(const Boxes& boxes, std::span<const RecordField> fields, int i) {
    const RecordField& field = fieldOf(fields, i);
    boxes(i).setLocked(true);
    screen::Layout place =
        lay::field(field.caption, boxes(i), field.width).as(screen::Role::calculated).units(field.unit).above();
    place.right = isNumber(field);
    place.stretch = field.width == 0 ? 1 : 0;
    return place;
}

screen::Layout recordRow(const Boxes& boxes, std::span<const RecordField> fields, int from, int to) {
    screen::Layout row{.kind = screen::Layout::Kind::row};
    for (int i = from; i <= to; ++i) {
        row.children.push_back(recordField(boxes, fields, i));
    }
    return row;
}

void addTabStops(std::vector<screen::Control*>& order, const Boxes& boxes) {
    boxes.forEach([&order](screen::TextBox& box) { order.push_back(&box); });
}

}  // namespace velmora::host
