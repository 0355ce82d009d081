// The search of the start window in a workshop with very many proposals, compared with its bare statements.

#include <benchmark/benchmark.h>

#include "velmora/finding/proposal_finder.h"

#include "many_proposals.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

void find(benchmark::State& state, const char* text, bool isForNothing = false) {
    constexpr auto reach = finding::Reach::recent;
    static Workshop workshop(wantedProposals());
    const finding::Wanted wanted = finding::readWanted(text);
    compare(state, workshop, [&] {
        const auto found = finding::findProposals(workshop.session().Connection(), wanted, reach);
        require(!found.proposals.empty() || isForNothing, "nothing was found");
    });
}

void findLatest(benchmark::State& state) {
    find(state, "");
}

void findNumber(benchmark::State& state) {
    find(state, "300");
}

void findToothing(benchmark::State& state) {
    find(state, "38 x 12,7");
}

void findCustomer(benchmark::State& state) {
    find(state, "talleres numero 500");
}

/// The text that costs most: it is looked for in every field of the recent proposals.
void findNothing(benchmark::State& state) {
    find(state, "nada de esto", true);
}

BENCHMARK(findLatest)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findNumber)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findToothing)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findCustomer)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findNothing)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
