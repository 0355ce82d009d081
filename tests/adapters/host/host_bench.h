#pragma once
// A database with its tables, a session on it, and a user who looks at what the stand-ins show.

#include <memory>
#include <string>
#include <string_view>

#include <gmock/gmock.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/stand_ins/stand_ins.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/screen/data_grid.h"

#include "support/database_template.h"
#include "support/fake_screen.h"
#include "support/no_services.h"

namespace velmora::host {

inline std::unique_ptr<sql::Connection> hostDatabase() {
    static const support::DatabaseTemplate empty(data::createDatabase);
    return empty.copy();
}

class HostTest : public ::testing::Test {
  protected:
    HostTest() { stand_ins::registerStandIns(components, screen, services, clock); }

    void store(std::initializer_list<const char*> statements) {
        for (const char* statement : statements) {
            database->execute(statement);
        }
    }

    static screen::Control& control(screen::Form& form, std::string_view name) {
        screen::Control* found = form.find(name);
        if (found == nullptr) {
            throw std::logic_error("no control " + std::string(name));
        }
        return *found;
    }
    static std::string text(screen::Form& form, std::string_view name) {
        return dynamic_cast<screen::TextBox&>(control(form, name)).text();
    }
    /// The cells of a row as they are shown, divided by bars.
    static std::string row(screen::Form& form, std::string_view grid, std::size_t row) {
        const auto& shown = dynamic_cast<screen::DataGrid&>(control(form, grid));
        std::string cells;
        for (std::size_t i = 0; i < shown.columns().size(); ++i) {
            cells += (i == 0 ? "" : "|") + shown.cellText(row, i);
        }
        return cells;
    }
    static std::size_t rowCount(screen::Form& form, std::string_view grid) {
        return dynamic_cast<screen::DataGrid&>(control(form, grid)).rowCount();
    }
    /// Every box of the form refuses entry, every control that takes the focus has a name to be read out.
    static void expectReadOnlyAndNamed(const screen::Form& form) {
        for (const screen::Control* each : form.controls()) {
            if (const auto* box = dynamic_cast<const screen::TextBox*>(each)) {
                EXPECT_TRUE(box->locked()) << box->fullName();
            }
            const auto* captioned = dynamic_cast<const screen::Captioned*>(each);
            EXPECT_TRUE(!each->accessibleName().empty() || (captioned != nullptr && !captioned->caption().empty()))
                << each->fullName();
        }
    }

    std::unique_ptr<sql::Connection> database = hostDatabase();
    adapters::StandInSession session{*database};
    support::ScriptedScreen screen;
    support::NoServices services;
    system::SystemClock clock;
    components::ComponentFactory components;
};

}  // namespace velmora::host
