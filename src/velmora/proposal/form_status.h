#pragma once
// What the main form tells in its status line: the state of the proposal, the last action, why a key had no effect, and
// what is missing on it.

#include <functional>
#include <string>
#include <string_view>

#include "velmora/estimate/field_map.h"
#include "velmora/platform/system/system.h"
#include "velmora/proposal/draft.h"
#include "velmora/proposal/form_controls.h"

namespace velmora::proposal {

class FormStatus {
  public:
    /// `isConsultation`: whether the form only shows its proposal. All must outlive this object.
    FormStatus(estimate::FieldMap& fields, FormControls& controls, Draft& draft, const system::Clock& clock,
               std::function<bool()> isConsultation);

    /// Tells what was done with the proposal on the form: "Propuesta 321 grabada a las 10:32".
    void tellDeed(std::string_view participle) const { tellDeedOf(f_.proposal.number(), participle); }
    void tellDeedOf(const std::string& number, std::string_view participle) const;

    /// Tells why a key or button had no effect: "No se puede grabar: …", by the state of the proposal.
    void tellRefusal(std::string_view action) const;
    /// Tells that the toothing is incomplete, when it is and the product on show has one.
    void tellMissingToothing() const;
    /// Tells that the history has no rows, when it has none.
    void tellEmptyHistory() const;

    /// Marks each material on show whose price is 0.
    void followPrices() const;

  private:
    screen::RecordState state() const;
    std::string reason() const;

    estimate::FieldMap& f_;
    FormControls& controls_;
    Draft& draft_;
    const system::Clock& clock_;
    std::function<bool()> isConsultation_;
};

/// Sets the hints of the fields that are entered.
void writeHints(estimate::FieldMap& f, FormControls& c);

}  // namespace velmora::proposal
