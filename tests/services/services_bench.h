#pragma once
// A database, files in a folder of the test's own, and a machine whose dialogs and programs a test scripts.

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/sql/connection.h"

#include "support/database_template.h"
#include "support/fake_screen.h"
#include "support/fake_services.h"
#include "support/faulty_connection.h"
#include "support/recording_connection.h"
#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::services {

using support::FakeServices;

inline const runtime::Date morning = runtime::Date::of(2026, 1, 15, 10, 7, 30);

inline std::string write(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

/// "(none)" for a file that is not there.
inline std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : std::string("(none)");
}

inline bool exists(const std::string& path) {
    return std::filesystem::exists(path);
}

inline sql::Bytes bytes(std::string_view text) {
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    return sql::Bytes(first, first + text.size());
}

/// Proposals 7 and 8 are there, and no documents.
inline std::unique_ptr<sql::Connection> servicesDatabase() {
    const sqlite::Options options{.clock = [] { return morning; }, .catalog = "TALLER"};
    static const support::DatabaseTemplate filled(
        [](sql::Connection& database) {
            data::createDatabase(database);
            for (const char* proposal : {"7", "8"}) {
                database.execute(std::string("INSERT INTO DPI (DPI_Id,DPI_Tipo) VALUES (") + proposal + ",0)");
            }
        },
        options);
    return filled.copy(":memory:", options);
}

class ServicesTest : public ::testing::Test {
  protected:
    ServicesTest() {
        faults.refusedEndUndoes = true;
        faults.countsWritesThroughSets = true;
    }

    /// The first value of the first row as text; "NULL" for null, "no row" without one.
    std::string query(std::string_view statement) {
        const sql::Recordset rows = database->execute(statement);
        if (rows.eof()) {
            return "no row";
        }
        return rows[std::size_t{0}].isNull() ? "NULL" : rows[std::size_t{0}].toText();
    }
    sql::Value value(std::string_view statement) { return database->execute(statement)[std::size_t{0}]; }

    std::unique_ptr<sql::Connection> database = servicesDatabase();
    support::FaultyConnection faults{*database};
    support::RecordingConnection connection{faults};
    adapters::StandInSession session{connection, 7};
    support::ScriptedScreen screen;
    components::ComponentFactory components;
    support::TemporaryFolder temporary;
    support::TemporaryFolder desktop;
    FakeServices services{temporary};
    support::StoppedClock clock{morning};
    platform::Desk desk{screen, components, services, clock};
};

}  // namespace velmora::services
