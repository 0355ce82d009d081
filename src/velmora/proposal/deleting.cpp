#include "velmora/proposal/deleting.h"

#include "velmora/platform/screen/busy.h"

namespace velmora::proposal {

void Deleting::msEliminar() {
    heldBack_ = false;
    const std::string number = f_.proposal.number();
    if (f_.proposal.isNew()) {
        return;
    }
    if (f_.proposal.isAccepted()) {
        tellAccepted();
        return;
    }
    const screen::Answer answer = screen_.show({.text = "realmente desea eliminar el presupuesto nº " + number,
                                                .icon = screen::Icon::exclamation,
                                                .buttons = screen::Buttons::yesNo});
    // Chosen C-104: after No everything on the form stays as it is.
    if (answer != screen::Answer::yes) {
        return;
    }
    const session::Written written = remove(number);
    heldBack_ = written != session::Written::yes;
    if (written == session::Written::closed) {
        refuse();
    } else if (written == session::Written::yes) {
        peers_.emptyForm.show();
    }
}

// Differs D-063: the row is read inside the transaction before it is deleted: one accepted since it was loaded is not
// deleted, and one that another user has changed only after a confirmation.
session::Written Deleting::remove(const std::string& number) {
    const screen::Disabled disabled(f_.form);
    return session::writeChecked(
        session_.Connection(), screen_, clock_,
        {.look = [&] { return peers_.stored.look(number, peers_.stored.ownColumns()); },
         .write =
             [&] {
                 // Kept K-112: the labour lines stay in their table. Required as it is; numbers are never used again,
                 // so no other proposal gets them.
                 session_.Connection().execute("delete from dpi where dpi_id = " + number);
                 return true;
             },
         .question = "El presupuesto nº " + number +
                     " ha sido modificado por otro usuario desde que se cargó.\r\n¿Desea eliminarlo de todos modos?"});
}

void Deleting::refuse() {
    const labour::ProposalStanding& standing = peers_.stored.standing();
    if (standing.state == labour::ProposalStanding::accepted) {
        tellAccepted();
    } else {
        screen_.show({.text = standing.words(), .icon = screen::Icon::critical});
    }
}

void Deleting::tellAccepted() {
    screen_.show({.text = "Error, No es posible eliminar un presupuesto aceptado", .icon = screen::Icon::critical});
}

}  // namespace velmora::proposal
