// What the main form costs on top of its statements. Each measure runs the form's operation and, in the same turn, the
// statements that it sends, bare: prepared, stepped and finalized through SQLite's own interface, in the words that the
// dialect turned them into. `ratio` is the one through the other; `ratio_prepared` is the same against statements that
// were prepared beforehand.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/connection.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "quiet_desk.h"
#include "statement_recorder.h"

namespace velmora::bench {
namespace {

using Clock = std::chrono::steady_clock;

/// A folder that goes with its owner.
class TemporaryFolder {
  public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / ("velmora_bench_" + std::to_string(::getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string file(const char* name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

/// The demonstration workshop in a file, as an installation has it, and the main form open on it.
class Workshop {
  public:
    Workshop() {
        data::createDatabase(*connection_);
        data::fillDemo(*connection_, system::SystemClock().now());
        form_ = std::make_unique<proposal::frmBercialPiñones>(session_, desk_.desk());
        form_->activate();
    }

    proposal::frmBercialPiñones& form() { return *form_; }
    StatementRecorder& recorder() { return recorder_; }

    /// The newest proposal of a plain sprocket that has a hub and is not accepted yet.
    std::int32_t openProposal() {
        const sql::Recordset row = connection_->execute(
            "select max(DPI_Id) from DPI where DPI_Tipo = 0 and DPI_FAcepta is null and DPI_DmExt > 120");
        return row[0].toLong();
    }

  private:
    TemporaryFolder folder_;
    StatementRecorder recorder_;
    std::unique_ptr<sql::Connection> connection_ = sqlite::openDatabase(folder_.file("taller.db"));
    adapters::StandInSession session_{*connection_};
    QuietDesk desk_;
    std::unique_ptr<proposal::frmBercialPiñones> form_;
};

/// One for all measures: to fill it takes longer than to measure.
Workshop& theWorkshop() {
    static Workshop workshop;
    return workshop;
}

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

void compare(benchmark::State& state, Workshop& workshop, const std::function<void()>& operation) {
    operation();
    const Recording recording = workshop.recorder().record(operation);
    PreparedRecording prepared(recording);
    double program = 0;
    double bare = 0;
    double barePrepared = 0;
    for ([[maybe_unused]] auto turn : state) {
        const auto start = Clock::now();
        operation();
        const auto between = Clock::now();
        replay(recording);
        const auto replayed = Clock::now();
        prepared.replay();
        const auto end = Clock::now();
        program += seconds(between - start);
        bare += seconds(replayed - between);
        barePrepared += seconds(end - replayed);
        state.SetIterationTime(seconds(between - start));
    }
    state.counters["ratio"] = program / bare;
    state.counters["ratio_prepared"] = program / barePrepared;
    state.counters["bare_s"] = benchmark::Counter(bare, benchmark::Counter::kAvgIterations);
    state.counters["statements"] = static_cast<double>(recording.size());
}

void require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(what);
    }
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

BENCHMARK(leaveRoller)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(loadProposal)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(saveProposal)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
