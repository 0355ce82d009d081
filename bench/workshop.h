#pragma once
// A workshop for benchmarks: a database in a file, as in an installation, with the main form open on it.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "quiet_desk.h"
#include "statement_recorder.h"
#include "support/temporary_folder.h"

namespace velmora::bench {

/// Makes the database of the demonstration workshop with so many proposals, or with its own only.
void makeDatabase(const std::string& file, std::int64_t proposals);

/// The demonstration workshop with so many proposals, or the database that VELMORA_BENCH_DATABASE names, which was made
/// before and is changed; `furnish` adds to its rows before the form opens.
class Workshop {
  public:
    explicit Workshop(std::int64_t proposals = 0, const std::function<void(sql::Connection&)>& furnish = {});

    proposal::frmBercialPiñones& form() { return *form_; }
    StatementRecorder& recorder() { return recorder_; }
    session::Session& session() { return session_; }
    platform::Desk& desk() { return desk_.desk(); }
    std::string databaseFile() const { return file_; }

    /// The newest proposal of a plain sprocket that has a hub and is not accepted yet, or one of those before it.
    std::int32_t openProposal(std::size_t before = 0);

  private:
    support::TemporaryFolder folder_;
    std::string file_;
    StatementRecorder recorder_;
    std::unique_ptr<sql::Connection> connection_ = sqlite::openDatabase(file_);
    adapters::StandInSession session_{*connection_};
    QuietDesk desk_;
    std::unique_ptr<proposal::frmBercialPiñones> form_;
};

/// Runs the operation and, in the same iteration, its bare statements: prepared beforehand, stepped, each column read,
/// reset. Counters, of the fastest tenth of the iterations each: `ours_us`, `bare_us`, and `ratio`, the one by the
/// other. With VELMORA_BENCH_ALONE the operation runs alone, for a profile.
void compare(benchmark::State& state, Workshop& workshop, const std::function<void()>& operation);

/// Throws when an operation did not do its work, because it would be a fast one.
void require(bool done, const char* what);

}  // namespace velmora::bench
