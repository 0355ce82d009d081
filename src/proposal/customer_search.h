#pragma once
// The customer of a proposal, by code or by name.

#include "velmora/estimate/field_map.h"

namespace velmora::proposal {

class CustomerSearch {
  public:
    CustomerSearch(estimate::FieldMap& fields, session::Session& session, screen::Screen& screen,
                   session::KestraUtil& util)
        : f_(fields), session_(session), screen_(screen), oUtil_(util) {}

    /// The user comes to the code: who leaves it as it stands has not turned to another customer.
    void codeEntered() { knownCode_ = f_.txtPesu(0).text(); }

    /// Fills the name for the code in txtPesu(0); an unknown code opens the search. A text that is no number is left
    /// as it is. Errors: the database's.
    void msValidarCliente();

    /// Asks by which name to search, opens the search window, and takes over what was chosen.
    void msBuscarCliente();

    /// The main form has no search of articles.
    void msBuscarArticulo() {}

  private:
    void takeOver(const std::string& row);

    estimate::FieldMap& f_;
    session::Session& session_;
    screen::Screen& screen_;
    session::KestraUtil& oUtil_;
    std::string knownCode_;  ///< whose name stands in txtPesu(1), be it typed or looked up
};

}  // namespace velmora::proposal
