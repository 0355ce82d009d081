#include "workshop.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <numeric>
#include <stdexcept>

#include <malloc.h>

#include "velmora/data/new_database.h"
#include "velmora/platform/sql/connection.h"

#include "bare_connection.h"
#include "many_proposals.h"

namespace velmora::bench {

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

/// Each side works on a connection of its own, and what the other one has written empties its cache: the second of two
/// runs counts.
double secondsOfTheSecond(const std::function<void()>& work) {
    work();
    const auto start = Clock::now();
    work();
    return seconds(Clock::now() - start);
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

/// Whether the end of the heap is given back to the system and taken again within one operation depends on what happens
/// to lie there; it took up to half of either side's time.
void keepHeap() {
    constexpr int bytes = 64 * 1024 * 1024;
    mallopt(M_TRIM_THRESHOLD, bytes);
    mallopt(M_TOP_PAD, bytes / 16);
}

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

std::int32_t Workshop::openProposal(std::size_t before) {
    sql::Recordset rows = connection_->execute(
        "select DPI_Id from DPI where DPI_Tipo = 0 and DPI_FAcepta is null and DPI_DmExt > 120 order by DPI_Id desc");
    rows.moveTo(before);
    return rows["DPI_Id"].toLong();
}

void compare(benchmark::State& state, Workshop& workshop, const std::function<void()>& operation) {
    keepHeap();
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
    const BareConnection bareClient(workshop.databaseFile());
    PreparedRecording prepared(recording, bareClient.handle());
    Times program;
    Times bare;
    for ([[maybe_unused]] auto turn : state) {
        const double ours = secondsOfTheSecond(operation);
        program.add(ours);
        bare.add(secondsOfTheSecond([&] { prepared.replay(); }));
        state.SetIterationTime(ours);
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
