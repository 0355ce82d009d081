#include "velmora/platform/sql/column_index.h"

#include <algorithm>
#include <bit>

#include "velmora/platform/runtime/characters.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::sql {

namespace {

constexpr std::size_t manyColumns = 8;
constexpr std::size_t askedBeforeTable = 2;

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// Whether two letters may be the same in some case; letters beyond ASCII leave it open.
bool mayBeSame(char a, char b) {
    return runtime::small(a) == runtime::small(b) || !(isAscii(a) && isAscii(b));
}

/// From the back: the columns of a table begin alike.
bool sameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;  // the letters that names are written with keep their length in either case
    }
    for (std::size_t i = a.size(); i-- > 0;) {
        if (!mayBeSame(a[i], b[i])) {
            return false;
        }
        if (!isAscii(a[i]) || !isAscii(b[i])) {
            return runtime::UCase(a) == runtime::UCase(b);
        }
    }
    return true;
}

/// The same for a name in any case: of its length and its last letters, by which the columns of a table differ.
std::uint32_t markOf(std::string_view name) {
    constexpr std::uint32_t spread = 0x9E3779B9;  // an odd number whose product moves low bits to the high ones
    constexpr std::uint32_t smallLetter = 0x20;
    const auto fromBack = [&](std::size_t i) -> std::uint32_t {
        const char c = i < name.size() ? name[name.size() - 1 - i] : '\0';
        return isAscii(c) ? static_cast<std::uint32_t>(c) | smallLetter : 0;
    };
    return (static_cast<std::uint32_t>(name.size()) | fromBack(0) << 8U | fromBack(1) << 16U | fromBack(2) << 24U) *
           spread;
}

}  // namespace

std::optional<std::size_t> ColumnIndex::find(const std::vector<Column>& columns, std::string_view name) {
    if (columns.size() > manyColumns && ++asked_ > askedBeforeTable) {
        if (table_.empty()) {
            build(columns);
        }
        return findInTable(columns, name);
    }
    const auto found = std::ranges::find_if(columns, [&](const Column& c) { return sameName(c.name, name); });
    return found == columns.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - columns.begin()));
}

void ColumnIndex::forget() {
    asked_ = 0;
    table_.clear();
}

// Two columns of one mark stand in the table in their order, so that the first of one name is found.
void ColumnIndex::build(const std::vector<Column>& columns) {
    const std::size_t places = std::bit_ceil(columns.size() * 2);
    table_.assign(places, 0);
    shift_ = 32 - std::countr_zero(places);
    for (std::size_t position = 0; position < columns.size(); ++position) {
        std::size_t place = markOf(columns[position].name) >> shift_;
        while (table_[place] != 0) {
            place = (place + 1) & (table_.size() - 1);
        }
        table_[place] = static_cast<std::uint32_t>(position + 1);
    }
}

std::optional<std::size_t> ColumnIndex::findInTable(const std::vector<Column>& columns, std::string_view name) const {
    std::size_t place = markOf(name) >> shift_;
    for (; table_[place] != 0; place = (place + 1) & (table_.size() - 1)) {
        const std::size_t position = table_[place] - 1;
        if (sameName(columns[position].name, name)) {
            return position;
        }
    }
    return std::nullopt;
}

}  // namespace velmora::sql
