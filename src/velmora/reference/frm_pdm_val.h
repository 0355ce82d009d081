#pragma once
// The table of doubles: the measures of a double sprocket for each chain and number of teeth.

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/reference/chain_rows.h"

namespace velmora::reference {

/// Shown modally. The constructor lists the first chain and offers its first row when it has none.
class frmPDMVal : public screen::Form {
  public:
    frmPDMVal(session::Session& session, platform::Desk& desk);

    /// Prepares the form for the first row of a chain: the chain's own values can be typed too.
    void msPrimerRegistro();

    ChainFields& fields() { return f_; }

  private:
    void arrange();
    void wire();
    void Form_Load();
    void cboDobles_Click();
    void Text1_LostFocus(int Index);

    platform::Desk& desk_;
    ChainFields f_{*this};
    session::KestraUtil oUtil_;
    NewRowButton newRow_;
    ChainRows rows_;
};

}  // namespace velmora::reference
