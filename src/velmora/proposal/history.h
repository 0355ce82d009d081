#pragma once
// Earlier proposals with the same toothing: what a like piece cost.

#include "velmora/estimate/field_map.h"
#include "velmora/proposal/form_controls.h"

namespace velmora::proposal {

class History {
  public:
    History(estimate::FieldMap& fields, FormControls& controls, session::Session& session, screen::Screen& screen)
        : f_(fields), controls_(controls), session_(session), screen_(screen) {}

    /// Lists proposals with every criterion of the toothing, or, with bSoloTipo, of the type and what of the toothing
    /// is filled. No error leaves it: a list that cannot be made is empty.
    void msHistorico(bool bSoloTipo);

    /// The proposals on show; closed when the last list could not be made.
    const sql::Recordset& rsDpi() const { return rsDpi_; }

  private:
    std::string statement(bool bSoloTipo) const;
    std::string sameToothing() const;
    std::string sameTypeAndFilled() const;

    estimate::FieldMap& f_;
    FormControls& controls_;
    session::Session& session_;
    screen::Screen& screen_;
    sql::Recordset rsDpi_;
};

}  // namespace velmora::proposal
