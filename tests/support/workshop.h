#pragma once
// A small workshop with known rows, and the real main form standing in it: embedded database in memory, stand-in
// session, scripted screen, a clock that stands still.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/platform/desk.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "support/fake_screen.h"
#include "support/no_services.h"
#include "support/recording_connection.h"
#include "support/stopped_clock.h"

namespace velmora::support {

/// The rows, one statement each.
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
const std::vector<std::string>& workshopRows();

class Workshop : public ::testing::Test {
  protected:
    Workshop();

    /// Runs one statement on the database; what the forms read later follows it.
    sql::Recordset execute(std::string_view statement) { return connection.execute(statement); }
    /// The main form as jShow makes it, made when it is first asked for.
    proposal::frmBercialPiñones& form();
    estimate::FieldMap& fields() { return form().fields(); }
    /// Lets go of the form; the next call of form() makes another.
    void closeForm() { form_.reset(); }

    /// What a user does.
    void enter(screen::TextBox& box, std::string_view text);
    void leave() { form().leaveFocus(); }
    void chooseType(int type) { fields().cboTipoPre.setListIndex(type); }
    /// Pitch, chain width, teeth and roller in this order, and out of the last field.
    void enterToothing(std::string_view pitch, std::string_view chainWidth, std::string_view teeth,
                       std::string_view roller);
    /// 12,7 with this roller and 38 teeth: exterior above 120.
    void enterLargeSprocket() { enterToothing("12,7", "7,75", "38", "7,75"); }
    /// 12,7 with this roller and 17 teeth: exterior below 120.
    void enterSmallSprocket() { enterToothing("12,7", "7,75", "17", "7,75"); }

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

/// Counts how often a control's text is written anew while it lives.
class TextChanges final : public screen::FormObserver {
  public:
    TextChanges(screen::Form& form, const screen::Control& watched) : form_(form), watched_(watched) {
        form_.addObserver(*this);
    }
    ~TextChanges() override { form_.removeObserver(*this); }
    TextChanges(const TextChanges&) = delete;
    TextChanges& operator=(const TextChanges&) = delete;

    void controlChanged(screen::Control& control, screen::Property property) override;
    void formChanged() override {}
    void focusMoved(screen::Control*) override {}

    /// Every text that was written, in order.
    std::vector<std::string> texts;

  private:
    screen::Form& form_;
    const screen::Control& watched_;
};

}  // namespace velmora::support
