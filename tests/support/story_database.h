#pragma once
// The database that the processes of a story share: a file of the embedded engine, or a server's.

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/sql/connection.h"

#include "support/temporary_folder.h"

namespace velmora::support {

/// Empty at first. Made before the processes are started; each of them opens its own connections.
class StoryDatabase {
  public:
    enum class Where {
        file,    ///< of the embedded engine, gone with its owner
        server,  ///< the database that VELMORA_TEST_DSN names; all of its tables are dropped
    };

    explicit StoryDatabase(Where where);

    /// Another client. `patience`: how long it waits for another one's writes. Errors: DbError.
    std::unique_ptr<sql::Connection> open(std::chrono::milliseconds patience = std::chrono::seconds(5)) const;

    /// The file; none on a server.
    std::optional<std::string> file() const;

  private:
    std::optional<TemporaryFolder> folder_;
    std::string server_;  ///< its connection string
};

/// The command line "STORY [TURNS] [--server]".
struct StoryArguments {
    std::string_view story;
    int turns = 0;  ///< 0: as many as the story's long form has
    StoryDatabase::Where where = StoryDatabase::Where::file;
};

/// None when there is no story in it.
std::optional<StoryArguments> readStoryArguments(int argc, const char* const* argv);

/// The status of a program whose story needs a server when VELMORA_TEST_DSN names none: the test runner counts it as
/// skipped.
inline constexpr int noServerStatus = 77;
/// True when the story can be played where it was asked for; else this has been printed.
bool canPlay(const StoryArguments& arguments);

}  // namespace velmora::support
