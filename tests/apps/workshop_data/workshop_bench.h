#pragma once
// Databases, and a user, for the tests of the workshop's own data.

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/workshop_data/table_form.h"
#include "velmora/platform/desk.h"

#include "support/fake_screen.h"
#include "support/fake_services.h"
#include "support/faulty_connection.h"
#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::workshop_data {

/// A new database: all tables, without rows.
std::unique_ptr<sql::Connection> emptyDatabase(const std::string& path = ":memory:");
/// The demonstration workshop.
std::unique_ptr<sql::Connection> demoDatabase(const std::string& path = ":memory:");
/// One that is there.
std::unique_ptr<sql::Connection> openDatabase(const std::string& path);

/// A screen on which a test waits in vain for nothing: progress is shown, and cancelled on demand.
class DataScreen : public support::ScriptedScreen {
  public:
    bool cancels = false;
    std::unique_ptr<screen::Progress> progress(std::string_view title) override;
};

/// A workshop, its session and its desk.
class Workshop {
  public:
    explicit Workshop(std::unique_ptr<sql::Connection> opened);

    /// What a statement gives: rows separated by line ends, values by tabs.
    std::string query(const std::string& statement);
    /// The texts of all rows, by position.
    std::vector<RowTexts> rowsOf(const char* table);

    std::unique_ptr<sql::Connection> database;
    support::FaultyConnection connection;
    adapters::StandInSession session;
    DataScreen screen;
    support::TemporaryFolder folder;
    support::FakeServices services{folder};
    components::ComponentFactory components;
    support::StoppedClock clock;
    platform::Desk desk{screen, components, services, clock};
    std::deque<std::optional<std::string>> targets;  ///< the answers of the save dialogs
};

/// A form on it, and what a person does there.
class FormUser {
  public:
    FormUser(Workshop& workshop, const char* table);

    TableForm& form() { return form_; }
    screen::Control& control(const std::string& name);
    std::string text(const std::string& name);
    bool isEnabled(const std::string& name) { return control(name).isEnabled(); }
    /// The control of a column of the table.
    screen::Control& fieldOf(const std::string& column);
    std::string textOf(const std::string& column);

    /// Replaces the text of a column's field, chooses the entry or ticks the box.
    void enter(const std::string& column, const std::string& text);
    void press(const std::string& button);
    void key(screen::Key key);
    /// Enters a new row and saves it.
    void add(const std::vector<std::pair<std::string, std::string>>& values);
    std::string state() { return text("lblEstado"); }
    const std::string& deed() const { return form_.status().deed(); }

  private:
    const Table& table_;
    TableForm form_;
};

}  // namespace velmora::workshop_data
