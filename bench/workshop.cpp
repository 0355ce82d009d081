#include "workshop.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <numeric>
#include <stdexcept>

#include "velmora/data/new_database.h"
#include "velmora/platform/sql/connection.h"

#include "many_proposals.h"

namespace velmora::bench {

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

/// Of many measures, the mean of the fastest tenth: what else the machine does makes none of them faster.
class Times {
  public:
    void add(double seconds) { all_.push_back(seconds); }
    double fastestTenth() {
        const std::size_t tenth = (all_.size() + 9) / 10;
        const auto end = all_.begin() + static_cast<std::ptrdiff_t>(tenth);
        std::ranges::nth_element(all_, end - 1);
        return std::accumulate(all_.begin(), end, 0.0) / static_cast<double>(tenth);
    }

  private:
    std::vector<double> all_;
};

std::string databaseFor(const support::TemporaryFolder& folder, std::int64_t proposals) {
    if (const char* made = std::getenv("VELMORA_BENCH_DATABASE")) {
        return made;
    }
    std::string file = folder.file("taller.db");
    makeDatabase(file, proposals);
    return file;
}

}  // namespace

void makeDatabase(const std::string& file, std::int64_t proposals) {
    {
        const auto connection = sqlite::openDatabase(file);
        data::createDatabase(*connection);
        data::fillDemo(*connection, system::SystemClock().now());
    }
    if (proposals > 0) {
        fillProposals(file, proposals);
    }
}

Workshop::Workshop(std::int64_t proposals, const std::function<void(sql::Connection&)>& furnish)
    : file_(databaseFor(folder_, proposals)) {
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
    if (std::getenv("VELMORA_BENCH_ALONE") != nullptr) {
        for ([[maybe_unused]] auto turn : state) {
            const auto start = Clock::now();
            operation();
            state.SetIterationTime(seconds(Clock::now() - start));
        }
        return;
    }
    const Recording recording = workshop.recorder().record(operation);
    PreparedRecording prepared(recording);
    Times program;
    Times bare;
    for ([[maybe_unused]] auto turn : state) {
        const auto start = Clock::now();
        operation();
        const auto between = Clock::now();
        prepared.replay();
        const auto end = Clock::now();
        program.add(seconds(between - start));
        bare.add(seconds(end - between));
        state.SetIterationTime(seconds(between - start));
    }
    state.counters["ours_us"] = program.fastestTenth() * 1e6;
    state.counters["bare_us"] = bare.fastestTenth() * 1e6;
    state.counters["ratio"] = program.fastestTenth() / bare.fastestTenth();
    state.counters["statements"] = static_cast<double>(recording.size());
}

void require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(what);
    }
}

}  // namespace velmora::bench
