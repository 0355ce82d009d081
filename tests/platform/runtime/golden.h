#pragma once
// Reading of the tab-separated tables in tests/golden/.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::test {

struct GoldenRow {
    int line = 0;  ///< 1-based, the heading included
    std::vector<std::string> cells;
};

/// Every row behind the heading. Throws where the file cannot be read or a row has not `columns` cells.
std::vector<GoldenRow> readGolden(const std::string& file, std::size_t columns);

/// A double as the tables write it, with a decimal point.
double goldenNumber(std::string_view text);

/// "2024-12-31 00:00:00".
runtime::Date goldenDate(std::string_view text);

/// The number of the run-time error that the step raises; none when it succeeds.
template <typename Step>
std::optional<long> errorOf(Step&& step) {
    try {
        step();
    } catch (const runtime::RuntimeError& error) {
        return error.number();
    }
    return std::nullopt;
}

}  // namespace velmora::test
