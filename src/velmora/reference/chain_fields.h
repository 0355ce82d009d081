#pragma once
// The controls of the form of doubles' values, shared by its classes.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::reference {

/// Contents of the fields of Text1 in the form of doubles' values; mm except for Z.
enum Chain : int {
    chainTeeth = 0,
    chainPitch = 1,
    chainRoller = 2,
    chainInnerWidth = 3,  ///< "Cadena :"
    chainB1 = 4,
    chainB2 = 5,
    chainD2 = 6,
    chainDm = 7,
    chainDp = 8,
    chainDf = 9,  ///< computed: Dp − roller
    chainDe = 10,
    chainX = 11,  ///< computed: B2 − b1
    chainA = 12,
    chainH1 = 13,
};

struct ChainFields {
    explicit ChainFields(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    screen::Frame Frame1{form, "Frame1"};           ///< values of the chain
    screen::ComboBox cboDobles{form, "cboDobles"};  ///< the chain, stored as PDM_Tipo
    screen::Frame Frame2{form, "Frame2"};           ///< values for one number of teeth
    screen::ControlArray<screen::TextBox> Text1{form, "Text1", {{0, 13}}};
    screen::DataGrid dbgRs{form, "dbgRs"};
    screen::Sketch picMedidas{form, "picMedidas"};  ///< what the letters mean
    screen::Button cmdNuevo{form, "cmdNuevo"};
    screen::Button cmdGrabar{form, "cmdGrabar"};
    screen::Button cmdSalir{form, "cmdSalir"};
};

}  // namespace velmora::reference
