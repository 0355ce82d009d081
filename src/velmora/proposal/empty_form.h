#pragma once
// The main form emptied for a new proposal, after a deletion or on request.

#include <functional>
#include <string>
#include <vector>

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/estimate/new_proposal.h"
#include "velmora/proposal/buttons.h"
#include "velmora/proposal/history.h"
#include "velmora/proposal/stored_proposal.h"

namespace velmora::proposal {

class EmptyForm {
  public:
    struct Collaborators {
        estimate::MaterialLists& materials;
        History& history;
        Buttons& buttons;
        estimate::NewProposal& newProposal;
        StoredProposal& stored;
    };

    EmptyForm(estimate::FieldMap& fields, Collaborators peers, screen::Screen& screen)
        : f_(fields), peers_(peers), screen_(screen) {}

    /// Clears the fields to an empty proposal; set by the form.
    std::function<void()> msLimpiarCampos;

    /// The form shows a new proposal of the type on it; the focus is on the type. Errors: the database's.
    void show();

    /// The texts on the form are those of the database: to be called after a save or a load.
    void noteStored() { stored_ = texts(); }

    /// On the user's request: asks first when a text has changed since the last save or load. The focus is then on the
    /// customer. Errors: the database's.
    void showOnRequest();

  private:
    bool holdsUnsavedText() const;
    std::vector<std::string> texts() const;

    estimate::FieldMap& f_;
    Collaborators peers_;
    screen::Screen& screen_;
    std::vector<std::string> stored_;  ///< of all text boxes; empty on a new proposal
};

}  // namespace velmora::proposal
