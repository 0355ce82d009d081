#pragma once
// The table of gears, which also serves to choose a gear for a proposal.

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/reference/gear_rows.h"
#include "velmora/reference/new_row_button.h"

namespace velmora::reference {

/// To choose a gear, the caller clears nIdEngranaje, sets the family, shows the form modally and reads nIdEngranaje.
class frmENGVal : public screen::Form {
  public:
    frmENGVal(session::Session& session, platform::Desk& desk);

    GearFields& fields() { return f_; }
    /// The gear in nIdEngranaje has been written by this form.
    bool hasSaved() const { return saved_; }

  private:
    void arrange();
    void wire();
    void Form_Load();
    void cboDobles_Click();
    void Text1_LostFocus(int Index);
    void msCalcularEngranaje();
    void chooseRow();
    void save();

    GearFields f_{*this};
    session::KestraUtil oUtil_;
    NewRowButton newRow_;
    GearRows rows_;
    bool saved_ = false;
};

}  // namespace velmora::reference
