#pragma once
// The table of the doubles: for each chain and each number of teeth the measures of a double sprocket.

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/reference/chain_rows.h"

namespace velmora::reference {

/// Shown modally. Made, it lists the first chain, and asks for its first row when it has none.
class frmPDMVal : public screen::Form {
  public:
    frmPDMVal(session::Session& session, platform::Desk& desk);

    /// Opens the form for the first row of a chain: the values of the chain can be typed too.
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
