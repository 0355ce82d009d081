#pragma once
// A database, files in a folder of the test's own, and a machine whose dialogs and programs a test scripts.

#include <deque>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/sql/connection.h"

#include "support/fake_screen.h"
#include "support/recording_connection.h"

namespace velmora::services {

inline const runtime::Date morning = runtime::Date::of(2026, 1, 15, 10, 7, 30);

/// Refuses one step of a connection, counted from 0: statements, begins, commits, and columns written through a set.
class FaultyConnection final : public sql::ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;

    void failAt(int step) {
        steps_ = 0;
        failing_ = step;
    }

    sql::Recordset execute(std::string_view statement) override {
        pass();
        sql::Recordset rows = ForwardingConnection::execute(statement);
        return rows.isOpen() ? sql::Recordset(std::make_unique<Rows>(*this, std::move(rows))) : rows;
    }
    void beginTrans() override {
        pass();
        ForwardingConnection::beginTrans();
    }
    /// A commit that fails has undone everything, as engines have it.
    void commitTrans() override {
        try {
            pass();
        } catch (const sql::DbError&) {
            ForwardingConnection::rollbackTrans();
            throw;
        }
        ForwardingConnection::commitTrans();
    }

  private:
    class Rows final : public sql::RowSource {
      public:
        Rows(FaultyConnection& owner, sql::Recordset rows) : owner_(owner), rows_(std::move(rows)) {}
        const std::vector<sql::Column>& columns() const override { return rows_.columns(); }
        bool hasRow(std::size_t position) override { return rows_.peek(position) != nullptr; }
        const sql::Row& row(std::size_t position) override { return *rows_.peek(position); }
        std::size_t rowCount() override { return rows_.recordCount(); }
        std::unique_ptr<sql::RowSource> reopen() const override { return nullptr; }
        void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override {
            owner_.pass();
            rows_.moveTo(position);
            rows_.updateBinary(column, std::move(content));
        }

      private:
        FaultyConnection& owner_;
        sql::Recordset rows_;
    };

    void pass() {
        if (steps_++ == failing_) {
            throw sql::DbError(sql::provider::failure, "Fallo provocado");
        }
    }

    int steps_ = 0;
    int failing_ = -1;
};

class FakeServices final : public system::Services {
  public:
    std::string temporaryFolder() const override { return folder; }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override {
        requests.push_back(request);
        if (dialogError) {
            throw *dialogError;
        }
        if (files.empty()) {
            ADD_FAILURE() << "nobody answered the dialog " << request.title;
            return std::nullopt;
        }
        auto answer = files.front();
        files.pop_front();
        return answer;
    }
    int openWithAssociatedProgram(std::string_view path) override {
        opened.emplace_back(path);
        if (openingError) {
            throw *openingError;
        }
        return openingCode;
    }

    std::string folder;
    std::deque<std::optional<std::string>> files;
    std::vector<system::OpenFileRequest> requests;
    std::vector<std::string> opened;
    int openingCode = 33;
    std::optional<runtime::RuntimeError> dialogError;
    std::optional<runtime::RuntimeError> openingError;
};

class StoppedClock final : public system::Clock {
  public:
    runtime::Date now() const override { return morning; }
};

/// A folder that goes with the test.
class Folder {
  public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velmora-services-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    /// The path of a file in it.
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    std::string withSeparator() const { return path_.string() + "/"; }

  private:
    std::filesystem::path path_;
};

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
class ServicesTest : public ::testing::Test {
  protected:
    ServicesTest() {
        data::createDatabase(*database);
        for (const char* proposal : {"7", "8"}) {
            database->execute(std::string("INSERT INTO DPI (DPI_Id,DPI_Tipo) VALUES (") + proposal + ",0)");
        }
        services.folder = temporary.withSeparator();
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

    std::unique_ptr<sql::Connection> database =
        sqlite::openDatabase(":memory:", {.clock = [] { return morning; }, .catalog = "TALLER"});
    FaultyConnection faults{*database};
    support::RecordingConnection connection{faults};
    adapters::StandInSession session{connection, 7};
    support::ScriptedScreen screen;
    components::ComponentFactory components;
    Folder temporary;
    Folder desktop;
    FakeServices services;
    StoppedClock clock;
    platform::Desk desk{screen, components, services, clock};
};

}  // namespace velmora::services
