#pragma once
// Earlier proposals with the same toothing, to compare prices.

#include "velmora/estimate/field_map.h"
#include "velmora/proposal/form_controls.h"

namespace velmora::proposal {

class History {
  public:
    History(estimate::FieldMap& fields, FormControls& controls, session::Session& session, screen::Screen& screen)
        : f_(fields), controls_(controls), session_(session), screen_(screen) {}

    /// Lists proposals that match all criteria of the toothing, or, with bSoloTipo, the type and the filled fields of
    /// the toothing. Raises no error: a failed query gives an empty list.
    void msHistorico(bool bSoloTipo);

    /// The proposals shown; closed when the last query failed.
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
