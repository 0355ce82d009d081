#pragma once
// Copies the proposal on the form with its labour lines at current rates: pending and without a work order, so that it
// can be edited at once.

#include <cstdint>
#include <string>

#include "velmora/estimate/field_map.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/proposal/loading.h"

namespace velmora::proposal {

class Duplicating {
  public:
    Duplicating(estimate::FieldMap& fields, Loading& loading, session::Session& session, screen::Screen& screen,
                session::KestraUtil& util)
        : f_(fields), loading_(loading), session_(session), screen_(screen), oUtil_(util) {}

    /// Asks first; does nothing for a proposal without number or date.
    void cmdDuplicar_Click();

    /// Copies the proposal on the form; when customer or units are missing, shows a message instead.
    void msDuplicar();

    /// Copies a stored proposal, all or nothing, shows the result, and loads the copy. Errors: 0x8004D00E when there is
    /// no such proposal.
    void FnDuplicarPropuesta(std::int32_t nIdOrigen);

  private:
    class Original;

    void loadCopy(const Original& original);
    void copyProposal(const sql::Recordset& row);
    void takeNewNumber();
    void copyLines(std::int32_t nIdOrigen);
    void copyLine(const sql::Recordset& line);
    std::string priceTimeAndAmount(const sql::Recordset& line);

    estimate::FieldMap& f_;
    Loading& loading_;
    session::Session& session_;
    screen::Screen& screen_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::proposal
