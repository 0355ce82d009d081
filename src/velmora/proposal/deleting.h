#pragma once
// Deletes the proposal on the form from the database.

#include "velmora/estimate/field_map.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/system/system.h"
#include "velmora/proposal/empty_form.h"
#include "velmora/proposal/stored_proposal.h"

namespace velmora::proposal {

class Deleting {
  public:
    struct Collaborators {
        EmptyForm& emptyForm;
        StoredProposal& stored;
    };

    Deleting(estimate::FieldMap& fields, Collaborators peers, session::Session& session, screen::Screen& screen,
             const system::Clock& clock)
        : f_(fields), peers_(peers), session_(session), screen_(screen), clock_(clock) {}

    /// Asks and deletes; the form then shows a new proposal. Does nothing without a number; refuses an accepted one.
    /// The stored row is read first: one accepted or deleted meanwhile is refused with a message, and one that another
    /// user has changed is deleted only after a second confirmation. Errors: the database's.
    void msEliminar();

    /// True when the last msEliminar deleted nothing because of another user's change of the row.
    bool wasHeldBack() const { return heldBack_; }

  private:
    session::Written remove(const std::string& number);
    void refuse();
    void tellAccepted();

    estimate::FieldMap& f_;
    Collaborators peers_;
    session::Session& session_;
    screen::Screen& screen_;
    const system::Clock& clock_;
    bool heldBack_ = false;
};

}  // namespace velmora::proposal
