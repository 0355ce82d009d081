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

/// The demonstration workshop; `furnish` adds to its rows before the form opens.
class Workshop {
  public:
    explicit Workshop(const std::function<void(sql::Connection&)>& furnish = {});

    proposal::frmBercialPiñones& form() { return *form_; }
    StatementRecorder& recorder() { return recorder_; }
    session::Session& session() { return session_; }
    platform::Desk& desk() { return desk_.desk(); }
    std::string databaseFile() const { return folder_.file("taller.db"); }

    /// The newest proposal of a plain sprocket that has a hub and is not accepted yet.
    std::int32_t openProposal();

  private:
    support::TemporaryFolder folder_;
    StatementRecorder recorder_;
    std::unique_ptr<sql::Connection> connection_ = sqlite::openDatabase(databaseFile());
    adapters::StandInSession session_{*connection_};
    QuietDesk desk_;
    std::unique_ptr<proposal::frmBercialPiñones> form_;
};

/// Runs the operation and, in the same iteration, its bare statements: prepared, stepped and finalized through SQLite's
/// own interface, as translated by the dialect. The counter `ratio` is the time of the operation by that of the
/// statements; `ratio_prepared` the same for statements prepared beforehand; `own_us` the difference to the bare
/// statements in microseconds.
void compare(benchmark::State& state, Workshop& workshop, const std::function<void()>& operation);

/// Throws when an operation did not do its work, because it would be a fast one.
void require(bool done, const char* what);

}  // namespace velmora::bench
