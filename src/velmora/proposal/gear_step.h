#pragma once
// The button of the gears: a gear is chosen on its own form, and its measures are copied to the proposal.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/gears.h"
#include "velmora/platform/desk.h"

namespace velmora::proposal {

class GearStep {
  public:
    GearStep(estimate::FieldMap& fields, estimate::Gears& gears, session::Session& session, platform::Desk& desk)
        : f_(fields), gears_(gears), session_(session), desk_(desk) {}

    /// Returns when the gears' form is closed. Errors: the database's.
    void cmdEng_Click();

  private:
    void choose(int family);

    estimate::FieldMap& f_;
    estimate::Gears& gears_;
    session::Session& session_;
    platform::Desk& desk_;
};

}  // namespace velmora::proposal
