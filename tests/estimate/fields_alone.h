#pragma once
// The field map on a bare form, with the session that some of its collaborators ask for: no main form, no engine.

#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/estimate/field_map.h"

#include "support/fake_screen.h"
#include "support/scripted_connection.h"

namespace velmora::support {

/// Every field holds "0,00", the list of types an entry for each, and the articles' formulas are on. No event has a
/// handler but those that a test gives.
class FieldsAlone : public ::testing::Test {
  protected:
    FieldsAlone() {
        for (int type = 0; type <= 14; ++type) {
            fields_.cboTipoPre.addItem("type");
        }
        chooseType(0);
        fields_.chkFormulas.setChecked(true);
        fields_.forEachTextBox([](screen::TextBox& box) { box.setText("0,00"); });
    }

    estimate::FieldMap& fields() { return fields_; }
    screen::Form& form() { return form_; }
    void chooseType(int type) { fields_.cboTipoPre.setListIndex(type); }

    ScriptedScreen screen;
    ScriptedConnection connection;
    adapters::StandInSession session{connection};

  private:
    screen::Form form_{"form"};
    estimate::FieldMap fields_{form_};
};

}  // namespace velmora::support
