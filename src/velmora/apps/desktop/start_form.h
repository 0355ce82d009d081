#pragma once
// The start window of the desktop program: a button for each public operation.

#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"
#include "velmora/shell/vmora.h"

namespace velmora::desktop {

class StartForm : public screen::Form {
  public:
    /// Desk and public class must outlive the form.
    StartForm(platform::Desk& desk, shell::VMORA& vmora);

  private:
    void arrange();
    void wire();
    void showProposal();

    platform::Desk& desk_;
    shell::VMORA& vmora_;
    screen::Button cmdPropuestas_{*this, "cmdPropuestas"};
    screen::Button cmdSeguimiento_{*this, "cmdSeguimiento"};
    screen::Button cmdParametros_{*this, "cmdParametros"};
    screen::Button cmdVerPropuesta_{*this, "cmdVerPropuesta"};
    screen::TextBox txtNumero_{*this, "txtNumero"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::desktop
