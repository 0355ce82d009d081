// The history of like proposals in a workshop that has made very many: VELMORA_BENCH_PROPOSALS of them (a million
// unless told), beside the bare statement.

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "velmora/data/schema.h"

#include "workshop.h"

namespace velmora::bench {
namespace {

std::int64_t wantedProposals() {
    std::int64_t wanted = 1'000'000;
    if (const char* text = std::getenv("VELMORA_BENCH_PROPOSALS")) {
        const std::string_view digits(text);
        std::from_chars(digits.data(), digits.data() + digits.size(), wanted);
    }
    return wanted;
}

/// Every column of a proposal but its key.
std::string columns() {
    std::string names;
    for (const data::TableDefinition& table : data::tables()) {
        if (table.name == "DPI") {
            for (const data::ColumnDefinition& column : table.columns) {
                if (column.name != "DPI_Id") {
                    names += (names.empty() ? "" : ",") + std::string(column.name);
                }
            }
        }
    }
    return names;
}

/// Doubles the proposals until there are enough. Six times the copies are like ones; after that each turn has teeth of
/// its own, so that a toothing keeps some dozens of proposals.
void multiplyProposals(sql::Connection& connection) {
    const std::string names = columns();
    std::string copied = names;
    const auto count = [&] { return connection.execute("select count(*) as n from DPI")[0].toDouble(); };
    for (int turn = 0; count() < static_cast<double>(wantedProposals()); ++turn) {
        if (turn >= 6) {
            copied = names;
            copied.replace(copied.find("DPI_Z"), 5, "DPI_Z + " + std::to_string(1000 << (turn - 6)));
        }
        connection.execute("INSERT INTO DPI (" + names + ") SELECT " + copied + " FROM DPI");
    }
}

Workshop& theWorkshop() {
    static Workshop workshop(multiplyProposals);
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
