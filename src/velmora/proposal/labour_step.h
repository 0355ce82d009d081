#pragma once
// The button of the labour: saves a proposal without a number, opens its lines on their own form, and takes their sum
// from the database into the price.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/totals.h"
#include "velmora/platform/desk.h"
#include "velmora/proposal/buttons.h"
#include "velmora/proposal/saving.h"

namespace velmora::proposal {

class LabourStep {
  public:
    struct Collaborators {
        estimate::Totals& totals;
        Saving& saving;
        Buttons& buttons;
    };

    LabourStep(estimate::FieldMap& fields, Collaborators peers, session::Session& session, platform::Desk& desk)
        : f_(fields), peers_(peers), session_(session), desk_(desk) {}

    /// Returns when the labour form is closed. Errors: the database's.
    void cmdManoObra_Click();

  private:
    bool keepLines();
    void takeOverSum();

    estimate::FieldMap& f_;
    Collaborators peers_;
    session::Session& session_;
    platform::Desk& desk_;
};

}  // namespace velmora::proposal
