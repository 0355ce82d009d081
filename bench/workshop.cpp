#include "workshop.h"

#include <chrono>
#include <stdexcept>

#include "velmora/data/new_database.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::bench {

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

}  // namespace

Workshop::Workshop(const std::function<void(sql::Connection&)>& furnish) {
    data::createDatabase(*connection_);
    data::fillDemo(*connection_, system::SystemClock().now());
    if (furnish) {
        furnish(*connection_);
    }
    form_ = std::make_unique<proposal::frmBercialPiñones>(session_, desk_.desk());
    form_->activate();
}

std::int32_t Workshop::openProposal() {
    const sql::Recordset row = connection_->execute(
        "select max(DPI_Id) from DPI where DPI_Tipo = 0 and DPI_FAcepta is null and DPI_DmExt > 120");
    return row[0].toLong();
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
    state.counters["own_us"] = benchmark::Counter((program - bare) * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["bare_s"] = benchmark::Counter(bare, benchmark::Counter::kAvgIterations);
    state.counters["statements"] = static_cast<double>(recording.size());
}

void require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(what);
    }
}

}  // namespace velmora::bench
