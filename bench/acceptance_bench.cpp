// The cost of an acceptance beyond its statements.

#include <benchmark/benchmark.h>

#include "accepting_clerk.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

constexpr int proposals = 20'000;

struct Shop {
    Workshop workshop{0, [](sql::Connection& connection) { addPendingProposals(connection, proposals); }};
    AcceptingClerk clerk{workshop.session(), workshop.desk(), proposals};
};

void acceptProposal(benchmark::State& state) {
    static Shop shop;
    compare(state, shop.workshop, [] { shop.clerk.acceptNext(); });
}

BENCHMARK(acceptProposal)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
