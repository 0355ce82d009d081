#pragma once
// What is on the main form and not stored yet, as a text that can be put on the form of a later run.

#include <optional>
#include <string>
#include <string_view>

#include "velmora/estimate/field_map.h"
#include "velmora/proposal/stored_proposal.h"

namespace velmora::proposal {

/// What has become of a draft's proposal meanwhile.
enum class Restored {
    asItWas,           ///< nothing; also a new proposal
    changedMeanwhile,  ///< somebody has changed it: a save overwrites that
    asNew,             ///< it is gone or accepted: the draft is on the form as a new proposal
};

class Draft {
  public:
    /// All must outlive this object.
    Draft(estimate::FieldMap& fields, const StoredProposal& stored) : f_(fields), stored_(stored) {}

    /// What is on the form now counts as stored, or as nothing worth keeping: an empty proposal.
    void settle();
    /// The whole form when one of its entered texts or chosen entries differs from what was stored or loaded last. To
    /// be asked between the user's actions.
    std::optional<std::string> unsaved();

    /// False for a text that is not a draft to its end.
    static bool isWhole(std::string_view draft);
    /// The number of the proposal in a draft; empty for a new one.
    static std::string numberIn(std::string_view draft);
    /// One line for the user: type, customer and toothing.
    static std::string describe(std::string_view draft);

    /// Puts a draft on a form that shows its proposal, or a new one: the lists of materials first, which open the rows
    /// that prices come from, then every control as it was, with nothing calculated. The draft must be whole. Errors:
    /// the database's.
    void restore(std::string_view draft);
    /// True when the form shows what the draft's one showed before anything was typed.
    bool beganWithThis(std::string_view draft) const;

  private:
    std::string entered() const;

    estimate::FieldMap& f_;
    const StoredProposal& stored_;
    int seen_ = 0;  ///< of StoredProposal::changes
    std::string settled_;
};

}  // namespace velmora::proposal
