// The history of similar proposals in a workshop with very many: VELMORA_BENCH_PROPOSALS (default one million),
// compared with the bare statement.

#include <benchmark/benchmark.h>

#include "many_proposals.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

Workshop& theWorkshop() {
    static Workshop workshop(wantedProposals());
    return workshop;
}

void enterToothing(proposal::frmBercialPiñones& form) {
    auto& measures = form.fields().Text1;
    measures(0).setText("12,7");
    measures(1).setText("38");
    measures(2).setText("8,51");
    measures(8).setText("7,75");
}

void sameToothing(benchmark::State& state) {
    Workshop& workshop = theWorkshop();
    enterToothing(workshop.form());
    compare(state, workshop, [&] { workshop.form().msHistorico(false); });
}

void wholeType(benchmark::State& state) {
    Workshop& workshop = theWorkshop();
    enterToothing(workshop.form());
    for (const int i : {0, 1, 2, 8}) {
        workshop.form().fields().Text1(i).setText("0");
    }
    compare(state, workshop, [&] { workshop.form().msHistorico(true); });
}

void leaveRoller(benchmark::State& state) {
    Workshop& workshop = theWorkshop();
    enterToothing(workshop.form());
    auto& measures = workshop.form().fields().Text1;
    compare(state, workshop, [&] {
        require(workshop.form().moveFocus(measures(2)), "the roller does not take the focus");
        workshop.form().leaveFocus();
    });
}

BENCHMARK(sameToothing)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(wholeType)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(leaveRoller)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
