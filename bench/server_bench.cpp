// The cost of the program beyond its statements on a database server: load, save, history, list, acceptance.
//
//   velmora_server_bench [CONNECTION STRING]      or the one that VELMORA_TEST_DSN holds; ALL OF ITS TABLES ARE DROPPED
//
// An operation and the bare calls of ODBC with the same statements take turns in one run, each on a connection of its
// own that has done nothing else. The counter `ratio` is the time of the operation by that of the calls, `own_us` the
// difference in microseconds, both of undisturbed turns; `median` the same ratio of the middle turns; `sent` the number
// of round trips, `asked` that of the statements, transaction steps and checks of the connection for which the program
// asked: an operation for which more was sent than asked ends the run. The round trips of each operation are printed.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/adapters/odbc/utf16.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/data/new_database.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/tracking/frm_seguimiento.h"

#include "accepting_clerk.h"
#include "adapters/odbc/server_under_test.h"
#include "call_recorder.h"
#include "many_proposals.h"
#include "quiet_desk.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

constexpr int pendingProposals = 1024;
constexpr std::size_t rowsOfAScreen = 20;
/// Of each measure. Beside it the proposals to accept must last.
constexpr std::int64_t usualTurns = 200;
constexpr std::size_t printedLength = 110;

std::string server;    ///< its connection string
std::string measured;  ///< name of the operation

/// Counts what the program asks for.
class CountingConnection final : public sql::ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;

    int asked = 0;

    sql::Recordset execute(std::string_view statement) override {
        ++asked;
        return ForwardingConnection::execute(statement);
    }
    void beginTrans() override {
        ++asked;
        ForwardingConnection::beginTrans();
    }
    void commitTrans() override {
        ++asked;
        ForwardingConnection::commitTrans();
    }
    void rollbackTrans() override {
        ++asked;
        ForwardingConnection::rollbackTrans();
    }
    bool isAlive() override {
        ++asked;
        return ForwardingConnection::isAlive();
    }
};

std::unique_ptr<sql::Connection> newServerDatabase() {
    test::dropAllTables(server);
    auto connection = odbc::openDatabase(server);
    data::createDatabase(*connection);
    data::fillDemo(*connection, system::SystemClock().now());
    addPendingProposals(*connection, pendingProposals);
    // A toothing has some proposals, not a thousand.
    connection->execute("UPDATE DPI SET DPI_Z = DPI_Z + DPI_Id where DPI_Id > (select max(DPI_Id) from DPI) - " +
                        std::to_string(pendingProposals));
    // A session that has written thousands of rows answers later than a new one, by a seventh for a load.
    connection.reset();
    return odbc::openDatabase(server);
}

struct ServerWorkshop {
    std::unique_ptr<sql::Connection> database = newServerDatabase();
    CountingConnection connection{*database};
    adapters::StandInSession session{connection};
    QuietDesk desk;
    proposal::frmBercialPiñones form{session, desk.desk()};
    tracking::frmSeguimiento tracking{session, desk.desk()};
    AcceptingClerk clerk{session, desk.desk(), pendingProposals};
    BareClient bare{server};
};

ServerWorkshop& theWorkshop() {
    static ServerWorkshop workshop;
    return workshop;
}

void print(const std::string& operation, const SentStatements& sent) {
    std::cout << operation << " sends " << sent.size() << ":\n";
    for (const SentStatement& statement : sent) {
        const std::string text = odbc::toUtf8(statement.text);
        std::cout << "  " << text.substr(0, printedLength) << (text.size() > printedLength ? "…" : "") << "  ("
                  << statement.rows << " rows)\n";
    }
}

/// The time below which this share of the turns stays.
double quantile(std::vector<double> seconds, double share) {
    const auto at = seconds.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(seconds.size()));
    std::ranges::nth_element(seconds, at);
    return *at;
}

constexpr double middleTurn = 0.5;
/// Of both sides alike. A wait for the processor, which both have by turns and which costs several milliseconds, moves
/// the middle of a run by more than what is measured; the fastest tenth of many turns has none.
constexpr double undisturbedTurn = 0.1;

/// `after` runs behind each operation, beside the clock.
void compare(
    benchmark::State& state, const std::function<void()>& operation, const std::function<void()>& after = [] {}) {
    ServerWorkshop& workshop = theWorkshop();
    // Twice: the second one opens the connection that sets with many rows leave to the next statement.
    for (int warmUp = 0; warmUp < 2; ++warmUp) {
        operation();
        after();
    }
    workshop.connection.asked = 0;
    const SentStatements sent = recordCalls(operation);
    after();
    const int asked = workshop.connection.asked;
    print(measured, sent);
    workshop.bare.replay(sent);  // a server reads its catalogue at a connection's first statements
    std::vector<double> program;
    std::vector<double> bare;
    for ([[maybe_unused]] auto turn : state) {
        const auto start = std::chrono::steady_clock::now();
        operation();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        after();
        program.push_back(took.count());
        bare.push_back(workshop.bare.replay(sent));
        state.SetIterationTime(took.count());
    }
    const double undisturbed = quantile(program, undisturbedTurn);
    const double undisturbedBare = quantile(bare, undisturbedTurn);
    state.counters["ratio"] = undisturbed / undisturbedBare;
    state.counters["own_us"] = (undisturbed - undisturbedBare) * 1e6;
    state.counters["median"] = quantile(std::move(program), middleTurn) / quantile(std::move(bare), middleTurn);
    state.counters["sent"] = static_cast<double>(sent.size());
    state.counters["asked"] = asked;
    require(static_cast<int>(sent.size()) <= asked, "more was sent to the server than the program asked for");
}

/// The newest proposal of a plain sprocket that has a hub and is not accepted yet, none of those to accept.
std::int32_t openProposal() {
    return theWorkshop()
        .database
        ->execute("select min(DPI_Id) from DPI where DPI_Tipo = 0 and DPI_FAcepta is null and DPI_DmExt > 120")[0]
        .toLong();
}

void loadProposal(benchmark::State& state) {
    const std::int32_t number = openProposal();
    compare(state,
            [&] { require(theWorkshop().form.msCargarPresupuesto(number, true), "the proposal was not loaded"); });
}

void saveProposal(benchmark::State& state) {
    require(theWorkshop().form.msCargarPresupuesto(openProposal(), true), "the proposal was not loaded");
    compare(state, [] { require(theWorkshop().form.msGrabar(true), "the proposal was not saved"); });
}

void history(benchmark::State& state) {
    auto& measures = theWorkshop().form.fields().Text1;
    measures(0).setText("12,7");
    measures(1).setText("38");
    measures(2).setText("8,51");
    measures(8).setText("7,75");
    compare(state, [] { theWorkshop().form.msHistorico(false); });
}

void paint(const screen::DataGrid& grid) {
    int filled = 0;
    for (std::size_t row = 0; row < rowsOfAScreen; ++row) {
        for (std::size_t column = 0; column < grid.columns().size(); ++column) {
            filled += grid.cellText(row, column).empty() ? 0 : 1;
        }
    }
    require(filled > 0, "no rows were listed");
}

/// The list with its first screen. Its rows have all come before the bare calls run.
void list(benchmark::State& state, const char* customer) {
    tracking::TrackingFields& f = theWorkshop().tracking.fields();
    f.cboFiltroHistorico.setListIndex(tracking::allStates);
    f.txtCriterio(tracking::customerFrom).setText(customer);
    compare(
        state,
        [&] {
            f.cmdfiltro.onClick();
            paint(f.dbgDPI);
        },
        [&] { f.rsDpi->recordCount(); });
}

void listOfAll(benchmark::State& state) {
    list(state, "");
}

void listOfOneCustomer(benchmark::State& state) {
    list(state, "1003");
}

void acceptProposal(benchmark::State& state) {
    compare(state, [] { theWorkshop().clerk.acceptNext(); });
}

void registerAll() {
    const std::pair<const char*, void (*)(benchmark::State&)> measures[] = {
        {"loadProposal", loadProposal}, {"saveProposal", saveProposal},           {"history", history},
        {"listOfAll", listOfAll},       {"listOfOneCustomer", listOfOneCustomer}, {"acceptProposal", acceptProposal},
    };
    const std::int64_t turns = numberFrom("VELMORA_BENCH_TURNS", usualTurns);
    for (const auto& [name, measure] : measures) {
        benchmark::RegisterBenchmark(name,
                                     [name, measure](benchmark::State& state) {
                                         measured = name;
                                         measure(state);
                                     })
            ->Iterations(turns)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
}

}  // namespace
}  // namespace velmora::bench

int main(int argc, char** argv) {
    using namespace velmora;
    benchmark::Initialize(&argc, argv);
    const auto named = argc > 1 ? std::optional<std::string>(argv[1]) : test::testServer();
    if (!named) {
        std::cout << "No server: neither an argument nor VELMORA_TEST_DSN names one.\n";
        return 0;
    }
    bench::server = odbc::readConnectionText(*named);
    bench::registerAll();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
