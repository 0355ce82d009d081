#pragma once
// Controls of the main form that the estimate does not use: buttons, the history, and frames that only group fields.

#include "velmora/estimate/field_map.h"

namespace velmora::proposal {

using estimate::Button;
using estimate::ControlArray;
using estimate::Frame;

struct FormControls {
    explicit FormControls(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    Button cmdNueva{form, "cmdNueva"};
    Button XPGrabar{form, "XPGrabar"};
    Button XPImprime{form, "XPImprime"};
    Button XPSalir{form, "XPSalir"};
    Button cmdCambios{form, "cmdCambios"};
    Button cmdManoObra{form, "cmdManoObra"};
    Button cmdDuplicar{form, "cmdDuplicar"};
    Button cmdeliminarrPropuesta{form, "cmdeliminarrPropuesta"};
    Button XPButton1{form, "XPButton1"};
    Button cmdDoc{form, "cmdDoc"};
    ControlArray<Button> cmdHPrecios{form, "cmdHPrecios", {{0, 2}}};
    Button cmdPorque{form, "cmdPorque"};

    Frame Frame1{form, "Frame1"};  ///< the history
    screen::DataGrid dbgDPI{form, "dbgDPI"};

    Frame fraPropuesta{form, "fraPropuesta"};
    Frame fraDentado{form, "fraDentado"};
    Frame fraEje{form, "fraEje"};
    Frame fraImportes{form, "fraImportes"};
    Frame fraNotas{form, "fraNotas"};
};

}  // namespace velmora::proposal
