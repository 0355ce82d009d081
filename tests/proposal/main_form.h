#pragma once
// The main form on a database in memory with known rows: stand-in session, scripted screen, a clock that stands still.

#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/platform/desk.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "support/fake_screen.h"
#include "support/no_services.h"
#include "support/recording_connection.h"
#include "support/stopped_clock.h"

namespace velmora::support {

/// The main form with these materials:
///
/// | PARDPI | name         | disc | iron | formula, factor | cost, sale | rate |
/// |--------|--------------|------|------|-----------------|------------|------|
/// | 1      | Disco F-114  | yes  | no   | 2, 6.165        | 0.95, 1.4  | 0.05 |
/// | 2      | Cubo F-1140  | no   | no   | 2, 6.165        | 1.02, 1.5  | 0.02 |
/// | 3      | Chapa hierro | yes  | yes  | 2, 6.165        | 0.6, 0.9   | 0.04 |
/// | 4      | Tubo disco   | yes  | no   | 4, 6.165        | 2, 3       | 0.03 |
/// | 5      | Tubo cubo    | no   | no   | 6, 6.165        | 2, 3       | 0.03 |
/// | 6      | Sin tarifa   | yes  | no   | 2, 6.165        | 1, 2       | 0    |
/// | 7      | Sin material | no   | no   | none            | 1, 2       | -    |
/// | 8      | Pletina      | -    | no   | 1, 7.85         | 1, 2       | 0.05 |
///
/// Calculos: the hub 0.6, the total width 0.4 of any pitch diameter up to 1000. One customer, 1001.
class MainForm : public ::testing::Test {
  protected:
    MainForm();

    /// Runs one statement on the database; what the forms read later follows it.
    sql::Recordset execute(std::string_view statement) { return connection.execute(statement); }
    /// The main form as jShow makes it, made when it is first asked for.
    proposal::frmBercialPiñones& form();
    estimate::FieldMap& fields() { return form().fields(); }

    /// What a user does.
    void enter(screen::TextBox& box, std::string_view text);
    void leave() { form().leaveFocus(); }
    void chooseType(int type) { fields().cboTipoPre.setListIndex(type); }
    /// A toothing whose exterior is above 120, and out of its last field.
    void enterLargeSprocket();

    StoppedClock clock;
    std::unique_ptr<sql::Connection> database;
    RecordingConnection connection;
    adapters::StandInSession session;
    ScriptedScreen screen;
    components::ComponentFactory components;
    NoServices services;
    platform::Desk desk{screen, components, services, clock};

  private:
    std::unique_ptr<proposal::frmBercialPiñones> form_;
};

}  // namespace velmora::support
