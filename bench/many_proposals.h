#pragma once
// A workshop that has made very many proposals.

#include <cstdint>

#include "velmora/platform/sql/connection.h"

namespace velmora::bench {

/// VELMORA_BENCH_PROPOSALS, a million unless told.
std::int64_t wantedProposals();

/// Saves that another process makes beside an open list: VELMORA_BENCH_SAVES, ten thousand unless told.
std::int64_t wantedSaves();

/// Doubles the proposals until there are as many as wanted. Six times the copies are like ones; after that each turn
/// has teeth of its own, so that a toothing keeps some dozens of proposals.
void multiplyProposals(sql::Connection& connection);

}  // namespace velmora::bench
