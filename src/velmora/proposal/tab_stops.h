#pragma once
// Which fields of the main form Enter and Tab stop at: those that a person enters for the displayed product type. The
// others can be clicked and typed into; Control and Enter steps to them too.

#include "velmora/estimate/field_map.h"

namespace velmora::proposal {

class TabStops {
  public:
    explicit TabStops(estimate::FieldMap& fields) : f_(fields) {}

    /// To be called once the tab order is set, and after each choice of a product type.
    void followType();

    /// To be called when the customer's name has changed: an empty one is to be entered.
    void followCustomerName();

  private:
    estimate::FieldMap& f_;
};

}  // namespace velmora::proposal
