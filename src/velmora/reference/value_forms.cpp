#include "velmora/reference/value_forms.h"

#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/reference/refusal.h"

namespace velmora::reference {

void showCancelledWrite(screen::Screen& screen, const runtime::RuntimeError& error) {
    screen.show({.text = std::string("Grabación Cancelada.") + lineBreak + "Error nº " +
                         runtime::CStr(std::int64_t{error.number()}) + lineBreak + error.description(),
                 .icon = screen::Icon::critical});
}

std::vector<screen::GridColumn> columnsWithoutPrefix(const std::vector<sql::Column>& shown, std::string_view prefix,
                                                     int width) {
    std::vector<screen::GridColumn> columns;
    for (const sql::Column& column : shown) {
        columns.push_back({.field = static_cast<int>(columns.size()),
                           .caption = runtime::Replace(column.name, prefix, ""),
                           .width = width,
                           .right = true});
    }
    return columns;
}

void explain(const screen::ControlArray<screen::TextBox>& fields, std::span<const Meaning> meanings) {
    for (const Meaning& meaning : meanings) {
        fields(meaning.field).setHint(meaning.text);
        fields(meaning.field).setToolTip(meaning.text);
    }
}

}  // namespace velmora::reference
