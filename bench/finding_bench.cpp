// The search of the start window in a workshop with very many proposals, compared with its bare statements.

#include <benchmark/benchmark.h>

#include "velmora/finding/proposal_finder.h"

#include "many_proposals.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

void find(benchmark::State& state, const char* text, finding::Reach reach) {
    static Workshop workshop(wantedProposals());
    const finding::Wanted wanted = finding::readWanted(text);
    compare(state, workshop, [&] {
        const auto found = finding::findProposals(workshop.session().Connection(), wanted, reach);
        require(!found.proposals.empty(), "nothing was found");
    });
}

void findLatest(benchmark::State& state) {
    find(state, "", finding::Reach::recent);
}

void findNumber(benchmark::State& state) {
    find(state, "300", finding::Reach::recent);
}

void findToothing(benchmark::State& state) {
    find(state, "38 x 12,7", finding::Reach::recent);
}

void findCustomer(benchmark::State& state) {
    find(state, "talleres numero 500", finding::Reach::recent);
}

void findText(benchmark::State& state) {
    find(state, "ref-40", finding::Reach::recent);
}

BENCHMARK(findLatest)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findNumber)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findToothing)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findCustomer)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(findText)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
