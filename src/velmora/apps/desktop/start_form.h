#pragma once
// The start window of the desktop program: a button for each public operation.

#include <optional>

#include "velmora/apps/backup/copies.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"
#include "velmora/shell/vmora.h"

namespace velmora::desktop {

class StartForm : public screen::Form {
  public:
    /// Desk, public class and copies must outlive the form. Without copies, as on a server, their button is not shown.
    StartForm(platform::Desk& desk, shell::VMORA& vmora, backup::Copies* copies);

    /// The copy that the user wants put back; the form has been unloaded for it.
    const std::optional<backup::Copy>& wanted() const { return wanted_; }

  private:
    void arrange();
    void wire();
    void showProposal();
    void showCopies();
    void showStateOfCopies();

    platform::Desk& desk_;
    shell::VMORA& vmora_;
    backup::Copies* copies_;
    std::optional<backup::Copy> wanted_;
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
