#pragma once
// The sheet of all keys of a form, as a form.

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

class KeysForm : public screen::Form {
  public:
    /// The keys that `shown` has now.
    explicit KeysForm(const screen::Form& shown);

  private:
    screen::DataGrid dbgTeclas_{*this, "dbgTeclas"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::toolkit
