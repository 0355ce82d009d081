#pragma once
// An empty proposal on the main form: nothing is typed yet, and each material on show has its price.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/totals.h"

namespace velmora::estimate {

class NewProposal {
  public:
    NewProposal(FieldMap& fields, Totals& totals) : f_(fields), totals_(totals) {}

    /// After the fields were emptied, by the form's load or by a delete: no field counts as typed, the words of the
    /// approximate weight are gone, and the materials on show are priced. Error 94 for a material without prices.
    void begin();

    /// After a product type was chosen: prices the materials of the parts that this type brings along, and takes the
    /// price away from a part that it has not and that weighs nothing. A price that the user has typed, and any other
    /// that stands already, stay. Nothing in a load, nor on a stored proposal.
    void typeChosen();

  private:
    void showPrices();
    void withdrawPrices();
    bool weighs(int weight) const;

    FieldMap& f_;
    Totals& totals_;
};

}  // namespace velmora::estimate
