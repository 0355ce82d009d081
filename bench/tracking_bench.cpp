// The tracking list of a workshop with very many proposals: time until the first rows are shown, compared with the bare
// statements; memory used by walking the whole list; and size of the write-ahead file while the list is open and
// another process saves.

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <functional>
#include <memory>
#include <string_view>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include "velmora/tracking/frm_seguimiento.h"

#include "many_proposals.h"
#include "support/foreign_saves.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

using tracking::frmSeguimiento;

constexpr std::size_t rowsOfAScreen = 20;
constexpr double mebibyte = 1024.0 * 1024.0;
constexpr double mostGrowth = 64;         // MiB
constexpr double mostWriteAhead = 16;     // MiB
constexpr std::size_t rowsBack = 20'000;  ///< number of rows walked back from the end

struct Tracking {
    Workshop workshop{wantedProposals()};
    std::unique_ptr<frmSeguimiento> form = std::make_unique<frmSeguimiento>(workshop.session(), workshop.desk());
};

Tracking& theTracking() {
    static Tracking tracking;
    return tracking;
}

/// Reads what a grid needs to paint the rows from `first` on. Returns the number of cells that are not empty.
int paint(const screen::DataGrid& grid, std::size_t first) {
    int filled = 0;
    for (std::size_t row = first; row < first + rowsOfAScreen; ++row) {
        for (std::size_t column = 0; column < grid.columns().size(); ++column) {
            filled += grid.cellText(row, column).empty() ? 0 : 1;
        }
    }
    return filled;
}

using Setting = std::function<void(tracking::TrackingFields&)>;

/// Filters with the given setting and paints the first screen.
void list(benchmark::State& state, const Setting& setting, screen::Button tracking::TrackingFields::*button) {
    Tracking& shop = theTracking();
    tracking::TrackingFields& f = shop.form->fields();
    f.txtCriterio.forEach([](screen::TextBox& box) { box.setText(""); });
    f.cboTipoPre.setListIndex(0);
    f.cboFiltroHistorico.setListIndex(tracking::allStates);
    setting(f);
    compare(state, shop.workshop, [&] {
        (f.*button).onClick();
        require(paint(f.dbgDPI, 0) > 0, "no rows were listed");
    });
}

void filter(benchmark::State& state, const Setting& setting) {
    list(state, setting, &tracking::TrackingFields::cmdfiltro);
}

void all(benchmark::State& state) {
    filter(state, [](auto&) {});
}

void pending(benchmark::State& state) {
    filter(state, [](auto& f) { f.cboFiltroHistorico.setListIndex(tracking::onlyPending); });
}

void accepted(benchmark::State& state) {
    filter(state, [](auto& f) { f.cboFiltroHistorico.setListIndex(tracking::onlyAccepted); });
}

void ofOneType(benchmark::State& state) {
    filter(state, [](auto& f) { f.cboTipoPre.setListIndex(5); });
}

void pendingOfOneType(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.cboTipoPre.setListIndex(5);
        f.cboFiltroHistorico.setListIndex(tracking::onlyPending);
    });
}

void ofOneCustomer(benchmark::State& state) {
    filter(state, [](auto& f) { f.txtCriterio(tracking::customerFrom).setText("1002"); });
}

void ofSeveralCustomers(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.txtCriterio(tracking::customerFrom).setText("1002");
        f.txtCriterio(tracking::customerTo).setText("1004");
    });
}

void ofHalfTheCustomers(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.txtCriterio(tracking::customerFrom).setText("1000");
        f.txtCriterio(tracking::customerTo).setText("1999");
    });
}

void pendingOfOneCustomer(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.txtCriterio(tracking::customerFrom).setText("1002");
        f.cboFiltroHistorico.setListIndex(tracking::onlyPending);
    });
}

void sinceTheBeginning(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.txtCriterio(tracking::dateFrom).setText("01/01/2020");
        f.txtCriterio(tracking::dateTo).setText("31/12/2049");
    });
}

void byNumbers(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.txtCriterio(tracking::numberFrom).setText("1");
        f.txtCriterio(tracking::numberTo).setText("1000");
    });
}

void byManyNumbers(benchmark::State& state) {
    filter(state, [](auto& f) {
        f.txtCriterio(tracking::numberFrom).setText("1");
        f.txtCriterio(tracking::numberTo).setText("1000000");
    });
}

void byNumber(benchmark::State& state) {
    filter(state, [](auto& f) { f.txtCriterio(tracking::numberFrom).setText("300"); });
}

/// The search by measures: of the type alone, or with this number of teeth.
void search(benchmark::State& state, const char* teeth) {
    list(
        state,
        [teeth](auto& f) {
            f.cboTipoPre.setListIndex(0);
            f.Text1.forEach([](screen::TextBox& box) { box.setText("0"); });
            f.Text1(1).setText(teeth);
        },
        &tracking::TrackingFields::XPButton4);
}

void byMeasures(benchmark::State& state) {
    search(state, "19");
}

void byTypeAlone(benchmark::State& state) {
    search(state, "0");
}

double residentMebibytes() {
    std::ifstream file("/proc/self/statm");
    std::int64_t program = 0;
    std::int64_t resident = 0;
    file >> program >> resident;
    return static_cast<double>(resident * ::sysconf(_SC_PAGESIZE)) / mebibyte;
}

/// The list of all proposals, with the first screen painted.
tracking::TrackingFields& openAll() {
    tracking::TrackingFields& f = theTracking().form->fields();
    f.cboTipoPre.setListIndex(0);
    f.txtCriterio.forEach([](screen::TextBox& box) { box.setText(""); });
    f.cboFiltroHistorico.setListIndex(tracking::allStates);
    f.cmdfiltro.onClick();
    paint(f.dbgDPI, 0);
    return f;
}

/// Screen by screen to the last row, like a user who holds the key down, and back to the first.
void walkToTheEnd(benchmark::State& state) {
    double most = 0;
    std::size_t rows = 0;
    for ([[maybe_unused]] auto turn : state) {
        tracking::TrackingFields& f = openAll();
        ::malloc_trim(0);  // memory left from filling the workshop must not hide the growth
        const double before = residentMebibytes();
        for (rows = 0; f.dbgDPI.recordset().peek(rows) != nullptr; rows += rowsOfAScreen) {
            paint(f.dbgDPI, rows);
            if (rows % (rowsOfAScreen * 500) == 0) {
                most = std::max(most, residentMebibytes() - before);
            }
        }
        f.rsDpi->moveLast();
        for (std::size_t row = rows; row > 0 && rows - row < rowsBack; row -= rowsOfAScreen) {
            paint(f.dbgDPI, row - rowsOfAScreen);
        }
        f.rsDpi->moveFirst();
        paint(f.dbgDPI, 0);
        most = std::max(most, residentMebibytes() - before);
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["growth_MiB"] = most;
    require(most < mostGrowth, "walking the list takes memory as it goes");
}

/// Another process saves while the list is open: without use, the program waiting for its user, or while it is
/// scrolled.
void beside(benchmark::State& state, bool read) {
    const test::SavesAsked asked{.database = theTracking().workshop.databaseFile(),
                                 .statement = "update DPI set DPI_ImpTP = isnull(DPI_ImpTP, 0) + 1 where DPI_Id = ",
                                 .keys = wantedProposals(),
                                 .saves = wantedSaves()};
    double largest = 0;
    double longest = 0;
    double seconds = 0;
    for ([[maybe_unused]] auto turn : state) {
        tracking::TrackingFields& f = openAll();
        const sql::Row first = *f.dbgDPI.recordset().peek(0);
        test::ForeignSaves saves("/proc/self/exe", asked);
        if (read) {
            for (std::size_t row = 0; !saves.ended(); row += rowsOfAScreen) {
                if (f.dbgDPI.recordset().peek(row) == nullptr) {
                    row = 0;
                }
                paint(f.dbgDPI, row);
            }
        }
        const test::ForeignSaves::Result result = saves.wait();
        largest = std::max(largest, static_cast<double>(result.largestWriteAhead) / mebibyte);
        longest = std::max(longest, result.longestSave);
        seconds += result.seconds;
        require(*f.dbgDPI.recordset().peek(0) == first, "the list has another first row");
    }
    state.counters["wal_MiB"] = largest;
    state.counters["longest_save_ms"] = longest * 1e3;
    state.counters["saves_per_s"] =
        static_cast<double>(wantedSaves()) * static_cast<double>(state.iterations()) / std::max(seconds, 1e-9);
    require(largest > 0, "the other process has written nothing");
    require(largest < mostWriteAhead, "the write-ahead file has grown behind the open list");
}

void unreadBesideForeignSaves(benchmark::State& state) {
    beside(state, false);
}

void readBesideForeignSaves(benchmark::State& state) {
    beside(state, true);
}

BENCHMARK(all)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(pending)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(accepted)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ofOneType)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(pendingOfOneType)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ofOneCustomer)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ofSeveralCustomers)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ofHalfTheCustomers)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(pendingOfOneCustomer)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(sinceTheBeginning)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(byNumbers)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(byManyNumbers)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(byNumber)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(byMeasures)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(byTypeAlone)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(walkToTheEnd)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(unreadBesideForeignSaves)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(readBesideForeignSaves)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench

int main(int argc, char** argv) {
    if (const auto status = velmora::test::runForeignSaves(argc, argv)) {
        return *status;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
