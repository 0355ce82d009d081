// Makes a database with very many proposals for the measures: velmora_bench_fill FILE PROPOSALS

#include <charconv>
#include <cstdint>
#include <exception>
#include <iostream>
#include <string_view>

#include "workshop.h"

int main(int argc, char** argv) {
    std::int64_t proposals = 0;
    const std::string_view digits = argc == 3 ? argv[2] : "";
    std::from_chars(digits.data(), digits.data() + digits.size(), proposals);
    if (proposals <= 0) {
        std::cerr << "velmora_bench_fill FILE PROPOSALS\n";
        return 2;
    }
    try {
        velmora::bench::makeDatabase(argv[1], proposals);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
