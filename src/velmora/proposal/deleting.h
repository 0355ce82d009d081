#pragma once
// The proposal on the form taken out of the database.

#include <functional>

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/proposal/buttons.h"
#include "velmora/proposal/history.h"

namespace velmora::proposal {

class Deleting {
  public:
    struct Rooms {
        estimate::MaterialLists& materials;
        History& history;
        Buttons& buttons;
    };

    Deleting(estimate::FieldMap& fields, Rooms rooms, session::Session& session, screen::Screen& screen)
        : f_(fields), rooms_(rooms), session_(session), screen_(screen) {}

    /// How the fields of an empty proposal are written; set by the form.
    std::function<void()> msLimpiarCampos;

    /// Asks and deletes; the form is a new proposal afterwards. Nothing without a number; refuses an accepted one.
    /// Errors: the database's.
    void msEliminar();

  private:
    void startAnew();

    estimate::FieldMap& f_;
    Rooms rooms_;
    session::Session& session_;
    screen::Screen& screen_;
};

}  // namespace velmora::proposal
