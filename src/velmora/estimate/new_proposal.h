#pragma once
// An empty proposal on the main form: no field counts as typed, and each displayed material has its price.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/totals.h"

namespace velmora::estimate {

class NewProposal {
  public:
    NewProposal(FieldMap& fields, Totals& totals) : f_(fields), totals_(totals) {}

    /// To be called after the fields were emptied by the form's load or by a delete: no field counts as typed, the
    /// caption of the approximate weight is cleared, and the displayed materials are priced. Error 94 for a material
    /// without prices.
    void begin();

    /// To be called after a product type was chosen: prices the materials of the parts that the type adds, and removes
    /// the price from a part that the type lacks and that has no weight. Prices typed by the user, and other existing
    /// ones, are kept. Does nothing during a load or on a stored proposal.
    void typeChosen();

  private:
    void showPrices();
    void withdrawPrices();
    bool weighs(int weight) const;

    FieldMap& f_;
    Totals& totals_;
};

}  // namespace velmora::estimate
