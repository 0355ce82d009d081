#include "velmora/adapters/sqlite/emitters/storage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace velmora::sqlite {

namespace {

struct Range {
    std::string_view spelling;
    std::string_view lowest, highest;
};

constexpr auto ranges = std::to_array<Range>({
    {"int", "-2147483648", "2147483647"},
    {"smallint", "-32768", "32767"},
    {"tinyint", "0", "255"},
});

}  // namespace

tsql::Type declaredType(std::string_view declaration) {
    const auto open = declaration.find('(');
    std::string_view name = declaration.substr(0, open);
    std::array<std::optional<std::size_t>, 2> arguments;
    if (open != std::string_view::npos) {
        std::size_t at = open + 1;
        for (auto& argument : arguments) {
            while (at < declaration.size() && declaration[at] == ' ') {
                ++at;
            }
            std::size_t value = 0;
            const auto [end, error] =
                std::from_chars(declaration.data() + at, declaration.data() + declaration.size(), value);
            if (error != std::errc()) {
                argument = declaration.substr(at, 3) == "max" ? std::optional(tsql::unlimited) : std::nullopt;
                break;
            }
            argument = value;
            at = static_cast<std::size_t>(end - declaration.data()) + 1;
        }
    }
    return tsql::typeNamed(name, arguments[0], arguments[1]).value_or(tsql::Type{});
}

std::string storageCheck(const tsql::Type& type, std::string_view column) {
    const std::string name(column);
    const std::string storage = "typeof(" + name + ")";
    switch (type.kind) {
        case tsql::Kind::bit:
            return name + " IN (0, 1)";
        case tsql::Kind::whole: {
            std::string check = storage + " IN ('integer', 'null')";
            const auto range =
                std::find_if(ranges.begin(), ranges.end(), [&](const Range& r) { return r.spelling == type.name; });
            if (range != ranges.end()) {
                check +=
                    " AND " + name + " BETWEEN " + std::string(range->lowest) + " AND " + std::string(range->highest);
            }
            return check;
        }
        case tsql::Kind::decimal:
        case tsql::Kind::real:
            return storage + " IN ('real', 'integer', 'null')";
        case tsql::Kind::text:
            return storage + " IN ('text', 'null')";
        case tsql::Kind::date:
            return name + " GLOB '[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-5][0-9]'";
        case tsql::Kind::binary:
            return storage + " IN ('blob', 'null')";
        case tsql::Kind::null:
            break;
    }
    return {};
}

}  // namespace velmora::sqlite
