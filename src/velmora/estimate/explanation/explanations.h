#pragma once
// The explanations of all calculated figures on the main form, worked out from its present values by the functions that
// the form itself calculates with. Reads fields, materials and the tables of constants, chains and gears; changes
// nothing.

#include <optional>
#include <vector>

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/dimension_constants.h"
#include "velmora/estimate/explanation/explanation.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/weights.h"
#include "velmora/platform/session/session.h"

namespace velmora::estimate {

class Explanations {
  public:
    struct Sources {
        CutPrices& cutPrices;
        const DimensionConstants& constants;
        const Weights& weights;
        session::Session& session;
    };

    Explanations(const FieldMap& fields, Sources sources) : f_(fields), sources_(sources) {}

    /// Every figure of the type on show, by topic. A figure whose rule cannot be applied, also because the database
    /// does not answer, says so itself. Errors: none.
    std::vector<Explanation> all() const;

    /// The figure in this field; none for a field that is only entered, or that the type on show does not have.
    std::optional<Explanation> of(const screen::TextBox& field) const;

    /// Whether of() has an answer; reads nothing from the database.
    bool covers(const screen::TextBox& field) const;

  private:
    const FieldMap& f_;
    Sources sources_;
};

}  // namespace velmora::estimate
