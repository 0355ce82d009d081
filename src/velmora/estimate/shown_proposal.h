#pragma once
// Questions to the main form's proposal: which one it is and what state it is in. Its identity fields are locked: the
// program writes an empty text, a whole number or a date to them.

#include <cstdint>
#include <string>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"

namespace velmora::estimate {

/// Identity and number of pieces of the proposal. Reads the fields on every call.
class ShownProposal {
  public:
    /// `fields` is the array txtPesu, which must outlive this object.
    explicit ShownProposal(const screen::ControlArray<screen::TextBox>& fields) : fields_(fields) {}

    /// The number as in its field, without leading zeros: for statements and messages. Empty while new.
    const std::string& number() const;
    /// The number, for a look-up. Error 13 while the proposal is new.
    std::int32_t key() const;
    /// True when it has no number yet: started on this form and not saved.
    bool isNew() const;
    /// True when the field of the acceptance has its date.
    bool isAccepted() const;
    /// True when it has become a work order.
    bool hasOrder() const;
    /// The number of pieces priced, as typed: may have decimals or be negative. 0 for a text that is not a number.
    double units() const;

  private:
    const screen::ControlArray<screen::TextBox>& fields_;
};

}  // namespace velmora::estimate
