#pragma once
// The customer of a proposal, by code or by name.

#include "velmora/estimate/field_map.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

class CustomerSearch {
  public:
    CustomerSearch(estimate::FieldMap& fields, session::Session& session, screen::Screen& screen,
                   session::KestraUtil& util)
        : f_(fields), session_(session), screen_(screen), oUtil_(util) {}

    /// On GotFocus of the code: remembers it, so that leaving it unchanged does not count as another customer.
    void codeEntered() { knownCode_ = f_.txtPesu(money::customerCode).text(); }

    /// Fills in the name for the code in txtPesu(0); an unknown code opens the search. A text that is not a number is
    /// left unchanged. Errors: the database's.
    void msValidarCliente();

    /// Asks for the kind of name, opens the search window, and fills in the chosen customer.
    void msBuscarCliente();

    /// Not available on the main form.
    void msBuscarArticulo() {}

  private:
    void takeOver(const std::string& row);

    estimate::FieldMap& f_;
    session::Session& session_;
    screen::Screen& screen_;
    session::KestraUtil& oUtil_;
    std::string knownCode_;  ///< code whose name is in txtPesu(1), typed or looked up
};

}  // namespace velmora::proposal
