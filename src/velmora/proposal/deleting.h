#pragma once
// The proposal on the form taken out of the database.

#include <functional>

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/proposal/buttons.h"
#include "velmora/proposal/history.h"
#include "velmora/proposal/stored_proposal.h"

namespace velmora::proposal {

class Deleting {
  public:
    struct Rooms {
        estimate::MaterialLists& materials;
        History& history;
        Buttons& buttons;
        StoredProposal& stored;
    };

    Deleting(estimate::FieldMap& fields, Rooms rooms, session::Session& session, screen::Screen& screen)
        : f_(fields), rooms_(rooms), session_(session), screen_(screen) {}

    /// How the fields of an empty proposal are written; set by the form.
    std::function<void()> msLimpiarCampos;

    /// Asks and deletes; the form is a new proposal afterwards. Nothing without a number; refuses an accepted one. The
    /// stored row is looked at first: one that was accepted or deleted meanwhile is refused too, which is told, and
    /// one that another user has changed is deleted only when the user says so again. Errors: the database's.
    void msEliminar();

    /// True when the last msEliminar deleted nothing for what another user had done to the row.
    bool wasHeldBack() const { return heldBack_; }

  private:
    session::Written remove(const std::string& number);
    void refuse();
    void tellAccepted();
    void startAnew();

    estimate::FieldMap& f_;
    Rooms rooms_;
    session::Session& session_;
    screen::Screen& screen_;
    bool heldBack_ = false;
};

}  // namespace velmora::proposal
