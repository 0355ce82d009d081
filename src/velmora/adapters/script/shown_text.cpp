#include "velmora/adapters/script/shown_text.h"

#include <charconv>
#include <cstdint>
#include <vector>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::script {

namespace {

using namespace screen;

template <typename Kind>
const Kind* as(const Control& control) {
    return dynamic_cast<const Kind*>(&control);
}

std::string number(std::size_t value) {
    return runtime::CStr(static_cast<std::int64_t>(value));
}

template <typename Items, typename Text>
std::string joined(const Items& items, std::string_view divider, Text text) {
    std::string all;
    bool first = true;
    for (const auto& item : items) {
        all.append(first ? std::string_view{} : divider).append(text(item));
        first = false;
    }
    return all;
}

std::string captionsOf(const Toolbar& bar) {
    return joined(bar.items(), "|", [](const Toolbar::Item& item) { return item.caption; });
}

std::string hexadecimal(const sql::Bytes& bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "0x";
    for (const std::byte b : bytes) {
        const auto value = std::to_integer<unsigned>(b);
        text += digits[value >> 4U];
        text += digits[value & 15U];
    }
    return text;
}

std::vector<std::size_t> visibleColumns(const DataGrid& grid) {
    std::vector<std::size_t> visible;
    for (std::size_t i = 0; i < grid.columns().size(); ++i) {
        if (grid.columns()[i].visible) {
            visible.push_back(i);
        }
    }
    return visible;
}

}  // namespace

std::string withPlainBreaks(std::string_view text) {
    return runtime::Replace(runtime::Replace(text, "\r\n", "\n"), "\r", "\n");
}

std::string inQuotes(std::string_view text) {
    std::string all = "\"";
    for (const char c : withPlainBreaks(text)) {
        if (c == '\n') {
            all += "\\n";
            continue;
        }
        if (c == '"' || c == '\\') {
            all += '\\';
        }
        all += c;
    }
    return all + '"';
}

std::optional<int> wholeNumber(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, value);
    return failure == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

std::string textOf(const Control& control) {
    if (const auto* box = as<TextBox>(control)) {
        return box->text();
    }
    if (const auto* list = as<ComboBox>(control)) {
        return list->text();
    }
    if (const auto* check = as<CheckBox>(control)) {
        return check->checked() ? "on" : "off";
    }
    if (const auto* label = as<Label>(control)) {
        return label->caption();
    }
    if (const auto* frame = as<Frame>(control)) {
        return frame->caption();
    }
    if (const auto* button = as<Button>(control)) {
        return button->caption();
    }
    if (const auto* grid = as<DataGrid>(control)) {
        return number(grid->rowCount());
    }
    if (const auto* bar = as<Toolbar>(control)) {
        return captionsOf(*bar);
    }
    return {};
}

std::string printed(const Control& control) {
    const std::string start = control.fullName() + " = ";
    if (const auto* list = as<ComboBox>(control)) {
        return start + runtime::CStr(std::int64_t{list->listIndex()}) + " " + inQuotes(list->text());
    }
    if (as<CheckBox>(control) != nullptr || as<DataGrid>(control) != nullptr) {
        return start + textOf(control);
    }
    return start + inQuotes(textOf(control));
}

State stateOf(const Control& control) {
    const auto* box = as<TextBox>(control);
    return {.name = control.fullName(),
            .enabled = control.isEnabled(),
            .visible = toolkit::isSeen(control),
            .locked = box != nullptr && box->locked(),
            .text = textOf(control)};
}

State stateOf(const Form& form) {
    return {.name = form.name(), .enabled = form.enabled(), .text = form.caption()};
}

std::string printed(const State& state) {
    return state.name + " enabled=" + (state.enabled ? "1" : "0") + " visible=" + (state.visible ? "1" : "0") +
           " text=" + inQuotes(state.text);
}

std::string tableOf(const DataGrid& grid) {
    const std::vector<std::size_t> columns = visibleColumns(grid);
    std::string table = joined(columns, "\t", [&](std::size_t c) { return grid.columns()[c].caption; }) + "\n";
    for (std::size_t row = 0; row < grid.rowCount(); ++row) {
        table += joined(columns, "\t", [&](std::size_t c) { return grid.cellText(row, c); }) + "\n";
    }
    return table;
}

std::string printed(const sql::Value& value) {
    struct Printer {
        std::string operator()(std::monostate) const { return "NULL"; }
        std::string operator()(bool bit) const { return bit ? "1" : "0"; }
        std::string operator()(std::int64_t whole) const { return runtime::CStr(whole); }
        std::string operator()(double real) const { return runtime::shortest(real); }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(const runtime::Date& date) const { return runtime::Format(date, "yyyy-mm-dd hh:nn:ss"); }
        std::string operator()(const sql::Bytes& bytes) const { return hexadecimal(bytes); }
    };
    return std::visit(Printer{}, value.raw());
}

std::string headingOf(const sql::Recordset& rows) {
    return joined(rows.columns(), "\t", [](const sql::Column& column) { return column.name; });
}

std::string rowsOf(sql::Recordset& rows) {
    std::string all;
    for (bool first = true; !rows.eof(); rows.moveNext()) {
        all.append(first ? "" : "\n");
        for (std::size_t i = 0; i < rows.columns().size(); ++i) {
            all.append(i == 0 ? "" : "\t").append(printed(rows[i]));
        }
        first = false;
    }
    return all;
}

}  // namespace velmora::script
