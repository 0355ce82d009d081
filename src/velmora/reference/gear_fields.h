#pragma once
// The controls of the gears' form, shared by its classes.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::reference {

/// Contents of the fields of Text1 in the gears' form; mm except for module, teeth and pitch.
enum Gear : int {
    gearModule = 0,
    gearTeeth = 1,
    gearPitch = 2,  ///< computed, like the three diameters after it
    gearPitchDiameter = 3,
    gearOutsideDiameter = 4,
    gearInnerDiameter = 5,
    gearHubDiameter = 6,  ///< Dm; absent for a gear disc, like A and C
    gearBore = 7,         ///< D1
    gearTotalWidth = 8,   ///< A
    gearFaceWidth = 9,    ///< B
    gearHubWidth = 10,    ///< C, computed
    gearHeight = 11,      ///< H
};

struct GearFields {
    explicit GearFields(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    screen::Frame Frame1{form, "Frame1"};
    screen::ComboBox cboDobles{form, "cboDobles"};  ///< the family, stored as ENG_Tipo
    screen::ControlArray<screen::TextBox> Text1{form, "Text1", {{0, 11}}};
    screen::Frame Frame2{form, "Frame2"};
    /// Captions hidden together with the fields of the same index.
    screen::ControlArray<screen::Label> Label1{form, "Label1", {{6, 6}, {8, 8}, {10, 10}}};
    screen::DataGrid dbgRs{form, "dbgRs"};
    screen::Sketch picMedidas{form, "picMedidas"};  ///< what the letters mean
    screen::Button cmdNuevo{form, "cmdNuevo"};
    screen::Button cmdGrabar{form, "cmdGrabar"};
    screen::Button cmdSalir{form, "cmdSalir"};
};

}  // namespace velmora::reference
