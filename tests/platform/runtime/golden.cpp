#include "golden.h"

#include <charconv>
#include <fstream>
#include <stdexcept>

namespace velmora::test {

namespace {

std::vector<std::string> splitAtTabs(const std::string& line) {
    std::vector<std::string> cells;
    std::size_t start = 0;
    for (;;) {
        const std::size_t tab = line.find('\t', start);
        cells.push_back(line.substr(start, tab - start));
        if (tab == std::string::npos) {
            return cells;
        }
        start = tab + 1;
    }
}

int part(std::string_view text, std::size_t at, std::size_t length) {
    int value = 0;
    const auto digits = text.substr(at, length);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) {
        throw std::runtime_error("no golden date: " + std::string(text));
    }
    return value;
}

}  // namespace

std::vector<GoldenRow> readGolden(const std::string& file, std::size_t columns) {
    std::ifstream in(std::string(VELMORA_TEST_DATA "/golden/") + file, std::ios::binary);
    std::vector<GoldenRow> rows;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (number == 1) {
            continue;
        }
        rows.push_back({number, splitAtTabs(line)});
        if (rows.back().cells.size() != columns) {
            throw std::runtime_error(file + ": wrong number of cells in: " + line);
        }
    }
    if (rows.empty()) {
        throw std::runtime_error(file + " cannot be read");
    }
    return rows;
}

double goldenNumber(std::string_view text) {
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size()) {
        throw std::runtime_error("no golden number: " + std::string(text));
    }
    return value;
}

runtime::Date goldenDate(std::string_view text) {
    return runtime::Date::of(part(text, 0, 4), static_cast<unsigned>(part(text, 5, 2)),
                             static_cast<unsigned>(part(text, 8, 2)), part(text, 11, 2), part(text, 14, 2),
                             part(text, 17, 2));
}

}  // namespace velmora::test
