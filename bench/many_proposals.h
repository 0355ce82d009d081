#pragma once
// A workshop with very many proposals.

#include <cstdint>
#include <string>

namespace velmora::bench {

/// The whole number that an environment variable holds.
std::int64_t numberFrom(const char* variable, std::int64_t unlessTold);

/// VELMORA_BENCH_PROPOSALS; default one million.
std::int64_t wantedProposals();

/// Number of saves that another process makes beside an open list: VELMORA_BENCH_SAVES; default ten thousand.
std::int64_t wantedSaves();

/// The customers of the proposals that are added: numbers from here on.
inline constexpr std::int64_t firstCustomer = 1000;
inline constexpr std::int64_t customers = 2000;

/// Adds copies of the proposals of a database that nobody has open until there are so many: written past the program,
/// without a journal, the indexes made at the end. They are spread evenly over twenty years, in the order of their
/// numbers, and over the customers; a toothing has some dozens of them. Throws std::runtime_error for what the engine
/// refuses.
void fillProposals(const std::string& databaseFile, std::int64_t proposals);

}  // namespace velmora::bench
