#pragma once
// The start window of the desktop program: a menu, and a button for each public operation.

#include <optional>

#include "velmora/apps/backup/copies.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/session.h"
#include "velmora/shell/vmora.h"

namespace velmora::desktop {

class StartForm : public screen::Form {
  public:
    /// All must outlive the form; the session is that of the public class. Without copies, as on a server, their button
    /// is not shown.
    StartForm(platform::Desk& desk, shell::VMORA& vmora, session::Session& session, backup::Copies* copies);

    // --- For the entries of the menu -------------------------------------------------------------------------

    platform::Desk& desk() { return desk_; }
    shell::VMORA& vmora() { return vmora_; }
    session::Session& session() { return session_; }
    bool hasCopies() const { return copies_ != nullptr; }
    void showCopies();

    /// The copy that the user wants put back; the form has been unloaded for it.
    const std::optional<backup::Copy>& wanted() const { return wanted_; }

  private:
    void arrange();
    void wire();
    void showProposal();
    void showStateOfCopies();

    platform::Desk& desk_;
    shell::VMORA& vmora_;
    session::Session& session_;
    backup::Copies* copies_;
    std::optional<backup::Copy> wanted_;
    screen::Toolbar barMenu_{*this, "barMenu"};
    screen::Button cmdPropuestas_{*this, "cmdPropuestas"};
    screen::Button cmdSeguimiento_{*this, "cmdSeguimiento"};
    screen::Button cmdParametros_{*this, "cmdParametros"};
    screen::Button cmdVerPropuesta_{*this, "cmdVerPropuesta"};
    screen::TextBox txtNumero_{*this, "txtNumero"};
    screen::Label lblCopias_{*this, "lblCopias"};
    screen::Button cmdCopias_{*this, "cmdCopias"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::desktop
