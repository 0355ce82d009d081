#pragma once
// A workshop with very many proposals.

#include <cstdint>

#include "velmora/platform/sql/connection.h"

namespace velmora::bench {

/// The whole number that an environment variable holds.
std::int64_t numberFrom(const char* variable, std::int64_t unlessTold);

/// VELMORA_BENCH_PROPOSALS; default one million.
std::int64_t wantedProposals();

/// Number of saves that another process makes beside an open list: VELMORA_BENCH_SAVES; default ten thousand.
std::int64_t wantedSaves();

/// Doubles the proposals until there are as many as wanted. The first six doublings copy the toothing; each further one
/// has teeth of its own, so that a toothing has some dozens of proposals.
void multiplyProposals(sql::Connection& connection);

}  // namespace velmora::bench
