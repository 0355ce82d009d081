#pragma once
// The price of a saw cut: the rate of a material's kind, kept in memory for a form's life, since every change of a
// size asks for it.

#include <string_view>

#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::estimate {

class CutPrices {
  public:
    explicit CutPrices(session::Session& session) : session_(session) {}

    /// Reads the rates anew. Errors: the database's.
    void msCargarPreciosCorte();

    /// The rate (€ per mm of cut) of the material parameter with this number; never 0: a material without a rate, an
    /// unknown one, and a text that is no number cost 0.01. Asks no database.
    double FnPrecioCorte(std::string_view nIdPar);

  private:
    session::Session& session_;
    sql::Recordset rsPreciosCorte_;
};

}  // namespace velmora::estimate
