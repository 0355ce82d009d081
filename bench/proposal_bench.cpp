// The cost of the main form beyond its statements: a full recalculation, a load, a save.

#include <algorithm>
#include <chrono>
#include <cstdint>

#include <benchmark/benchmark.h>

#include "workshop.h"

namespace velmora::bench {
namespace {

/// Shared by all benchmarks, because filling it takes longer than they do.
Workshop& theWorkshop() {
    static Workshop workshop;
    return workshop;
}

void leaveRoller(benchmark::State& state) {
    Workshop& workshop = theWorkshop();
    proposal::frmBercialPiñones& form = workshop.form();
    auto& measures = form.fields().Text1;
    measures(0).setText("25,4");
    measures(1).setText("38");
    measures(2).setText("15,88");
    measures(8).setText("17,02");
    compare(state, workshop, [&] {
        require(form.moveFocus(measures(2)), "the roller does not take the focus");
        form.leaveFocus();
    });
}

void loadProposal(benchmark::State& state) {
    Workshop& workshop = theWorkshop();
    const std::int32_t number = workshop.openProposal();
    compare(state, workshop,
            [&] { require(workshop.form().msCargarPresupuesto(number, true), "the proposal was not loaded"); });
}

void saveProposal(benchmark::State& state) {
    Workshop& workshop = theWorkshop();
    require(workshop.form().msCargarPresupuesto(workshop.openProposal(), true), "the proposal was not loaded");
    compare(state, workshop, [&] { require(workshop.form().msGrabar(true), "the proposal was not saved"); });
}

void makeNewDatabase(benchmark::State& state) {
    double fastest = 1e9;
    for ([[maybe_unused]] auto turn : state) {
        const support::TemporaryFolder folder;
        const auto start = std::chrono::steady_clock::now();
        makeDatabase(folder.file("taller.db"), 0);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(took.count());
        fastest = std::min(fastest, took.count());
    }
    state.counters["ours_us"] = fastest * 1e6;
}

BENCHMARK(makeNewDatabase)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(leaveRoller)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(loadProposal)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(saveProposal)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
