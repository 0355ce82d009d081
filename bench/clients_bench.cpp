// Ten processes that save at once in one file, beside ten bare clients that do the same statements: saves a second, and
// how many were refused. `ratio` is ours by theirs: at least 0.8 is wanted. VELMORA_BENCH_SECONDS (default 3) each.

#include <chrono>
#include <cstdlib>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "bare_connection.h"
#include "many_proposals.h"
#include "workshop.h"

namespace velmora::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int clientCount = 10;
constexpr std::int64_t proposals = 1000;

struct Done {
    std::int64_t saves = 0;
    std::int64_t refused = 0;
};

/// Two ends: what is written into `to` is read from `from`.
struct Pipe {
    Pipe() {
        int ends[2];
        require(::pipe(ends) == 0, "no pipe");
        from = ends[0];
        to = ends[1];
    }
    int from = -1;
    int to = -1;
};

using Save = std::function<void()>;
/// Makes a client ready: gives what it does again and again, and what it does after a refusal.
using Ready = std::function<std::pair<Save, Save>(int client)>;

Done saveUntil(Clock::time_point end, const Save& save, const Save& refused) {
    Done done;
    while (Clock::now() < end) {
        try {
            save();
            ++done.saves;
        } catch (const std::exception&) {
            refused();
            ++done.refused;
        }
    }
    return done;
}

/// The child: says that it is ready, waits until all are, and tells what it has done.
[[noreturn]] void runClient(int client, const Ready& ready, const Pipe& go, const Pipe& told) {
    int status = 1;
    try {
        ::close(go.to);
        const auto [save, refused] = ready(client);
        Done done;
        bool written = ::write(told.to, &done, sizeof done) == sizeof done;
        char none = 0;
        written = written && ::read(go.from, &none, 1) == 0;
        done = saveUntil(Clock::now() + std::chrono::milliseconds(1000 * numberFrom("VELMORA_BENCH_SECONDS", 3)), save,
                         refused);
        status = written && ::write(told.to, &done, sizeof done) == sizeof done ? 0 : 1;
    } catch (const std::exception& error) {
        ::write(2, error.what(), std::string(error.what()).size());
    }
    ::_exit(status);
}

Done sumOf(const Pipe& told, const char* otherwise) {
    Done sum;
    for (int client = 0; client < clientCount; ++client) {
        Done one;
        require(::read(told.from, &one, sizeof one) == sizeof one, otherwise);
        sum.saves += one.saves;
        sum.refused += one.refused;
    }
    return sum;
}

/// Ten processes; before them this one may have no thread and no connection.
Done runClients(const Ready& ready) {
    const Pipe go;
    const Pipe told;
    std::vector<pid_t> children;
    for (int client = 0; client < clientCount; ++client) {
        const pid_t child = ::fork();
        if (child == 0) {
            runClient(client, ready, go, told);
        }
        children.push_back(child);
    }
    ::close(told.to);
    sumOf(told, "a client did not begin");
    ::close(go.from);
    ::close(go.to);
    const Done done = sumOf(told, "a client did not end");
    for (const pid_t child : children) {
        ::waitpid(child, nullptr, 0);
    }
    ::close(told.from);
    return done;
}

/// Each client saves a proposal of its own.
std::pair<Save, Save> ourClient(int client) {
    static Workshop workshop;
    const bool loaded =
        workshop.form().msCargarPresupuesto(workshop.openProposal(static_cast<std::size_t>(client)), true);
    require(loaded, "the proposal was not loaded");
    return {[] { require(workshop.form().msGrabar(true), "the proposal was not saved"); }, [] {}};
}

std::pair<Save, Save> bareClient(int client) {
    static Workshop workshop;
    require(workshop.form().msCargarPresupuesto(workshop.openProposal(static_cast<std::size_t>(client)), true),
            "the proposal was not loaded");
    const auto save = [] { require(workshop.form().msGrabar(true), "the proposal was not saved"); };
    save();
    const Recording recording = workshop.recorder().record(save);
    require(!recording.empty(), "nothing was recorded");
    static BareConnection connection(workshop.databaseFile());
    static PreparedRecording prepared(recording, connection.handle());
    return {[] { prepared.replay(); }, [] { connection.run("ROLLBACK"); }};
}

void tenClientsSave(benchmark::State& state) {
    const support::TemporaryFolder folder;
    const std::string file = folder.file("taller.db");
    makeDatabase(file, proposals);
    ::setenv("VELMORA_BENCH_DATABASE", file.c_str(), 1);
    for ([[maybe_unused]] auto turn : state) {
        const Done ours = runClients(ourClient);
        const Done bare = runClients(bareClient);
        const auto seconds = static_cast<double>(numberFrom("VELMORA_BENCH_SECONDS", 3));
        state.counters["ours_per_s"] = static_cast<double>(ours.saves) / seconds;
        state.counters["bare_per_s"] = static_cast<double>(bare.saves) / seconds;
        state.counters["ratio"] = static_cast<double>(ours.saves) / static_cast<double>(bare.saves);
        state.counters["refused"] = static_cast<double>(ours.refused);
        state.counters["bare_refused"] = static_cast<double>(bare.refused);
        require(ours.refused == 0, "a client was refused");
    }
}

BENCHMARK(tenClientsSave)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench

BENCHMARK_MAIN();
