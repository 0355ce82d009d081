#pragma once
// What tests of the estimate stand on: a session on a connection without an engine, and the field map on a bare form.
// No main form.

#include <memory>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/estimate/field_map.h"

#include "materials.h"
#include "support/fake_screen.h"
#include "support/recording_connection.h"
#include "support/scripted_connection.h"

namespace velmora::support {

/// A session that reads the shop's materials. A test that changes them answers them anew.
class SessionAlone : public ::testing::Test {
  protected:
    SessionAlone() { answerMaterials(database, materials); }
    /// One material as it is from now on.
    Material& material(int id) { return materials.at(static_cast<std::size_t>(id) - 1); }

    std::vector<Material> materials = shopMaterials();
    ScriptedConnection database;
    RecordingConnection connection{database};
    adapters::StandInSession session{connection};
    ScriptedScreen screen;
};

/// Every field holds "0,00", the list of types an entry for each, and the articles' formulas are on. No event has a
/// handler but those that a test gives.
class FieldsAlone : public SessionAlone {
  protected:
    FieldsAlone() { newFields(); }

    estimate::FieldMap& fields() { return bare_->fields; }
    screen::Form& form() { return bare_->form; }
    void newFields() {
        bare_ = std::make_unique<Bare>();
        for (int type = 0; type <= 14; ++type) {
            fields().cboTipoPre.addItem("type");
        }
        chooseType(0);
        fields().chkFormulas.setChecked(true);
        fields().forEachTextBox([](screen::TextBox& box) { box.setText("0,00"); });
    }

    /// What a user does.
    void chooseType(int type) { fields().cboTipoPre.setListIndex(type); }
    void enter(screen::TextBox& box, std::string_view text) {
        ASSERT_TRUE(form().moveFocus(box, screen::Form::Insist::yes)) << box.fullName() << " takes no focus";
        box.setText(text);
    }
    void leave() { form().leaveFocus(); }

  private:
    struct Bare {
        screen::Form form{"form"};
        estimate::FieldMap fields{form};
    };
    std::unique_ptr<Bare> bare_;
};

}  // namespace velmora::support
