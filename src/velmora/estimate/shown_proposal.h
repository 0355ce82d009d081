#pragma once
// What the main form tells of the proposal on it: which one it is and how far it has come. The fields of its identity
// are locked: the program writes into them an empty text, the text of a whole number or a date.

#include <cstdint>
#include <string>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"

namespace velmora::estimate {

/// Questions to the proposal's identity and to its number of pieces. They look at the fields as they stand.
class ShownProposal {
  public:
    /// `fields` is the array txtPesu, which outlives this.
    explicit ShownProposal(const screen::ControlArray<screen::TextBox>& fields) : fields_(fields) {}

    /// The number as it stands in its field, without leading zeros: for statements and messages. Empty while new.
    const std::string& number() const;
    /// The number, for a look-up. Error 13 while the proposal is new.
    std::int32_t key() const;
    /// Whether it has no number yet: it was begun on this form and has not been saved.
    bool isNew() const;
    /// Whether the field of the acceptance holds its date.
    bool isAccepted() const;
    /// Whether it has become a work order.
    bool hasOrder() const;
    /// The number of pieces that are priced, as typed: it may have decimals, or be negative. 0 for a text that is no
    /// number.
    double units() const;

  private:
    const screen::ControlArray<screen::TextBox>& fields_;
};

}  // namespace velmora::estimate
