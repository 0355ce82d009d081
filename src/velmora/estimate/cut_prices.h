#pragma once
// The price of a saw cut: rates by kind of material, cached for a form's lifetime because every change of a size needs
// them.

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/session/session.h"

namespace velmora::estimate {

class CutPrices {
  public:
    explicit CutPrices(session::Session& session) : session_(session) {}

    /// Reads the rates again. Errors: the database's.
    void msCargarPreciosCorte();

    /// The rate (€ per mm of cut) of the material parameter with this number; never 0: a material without a rate, an
    /// unknown one, and a text that is not a number cost 0.01. Does not access the database.
    double FnPrecioCorte(std::string_view nIdPar) const;

    /// Whether the material has a rate of its own; without one its cuts cost the rate that FnPrecioCorte gives to all
    /// such materials.
    bool hasOwnRate(std::string_view nIdPar) const;

  private:
    double ownRate(std::string_view nIdPar) const;

    struct Answer {
        std::string key;
        double rate;
    };

    session::Session& session_;
    std::map<double, double> rates_;      ///< by the material parameter's number; of two rows for one, the first read
    mutable std::optional<Answer> last_;  ///< a recalculation asks for the same key again and again
};

}  // namespace velmora::estimate
