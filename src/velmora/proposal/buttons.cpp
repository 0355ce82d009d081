#include "velmora/proposal/buttons.h"

#include "velmora/platform/runtime/errors.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

using estimate::TextBox;

void Buttons::msCancelarBotones(bool bConsulta) {
    controls_.XPGrabar.setEnabled(false);
    controls_.XPImprime.setEnabled(!bConsulta);
    controls_.XPSalir.setEnabled(true);
    controls_.cmdCambios.setEnabled(false);
    controls_.cmdDuplicar.setEnabled(false);
    controls_.cmdeliminarrPropuesta.setEnabled(false);
}

void Buttons::disableWriting() {
    for (screen::Button* button : {&controls_.cmdNueva, &controls_.XPGrabar, &controls_.cmdCambios,
                                   &controls_.cmdManoObra, &controls_.cmdDuplicar, &controls_.cmdeliminarrPropuesta}) {
        button->setEnabled(false);
    }
}

void Buttons::cmdCambios_Click() {
    // A proposal without a number is not stopped here, only one with a work order.
    if (f_.proposal.hasOrder()) {
        return;
    }
    f_.forEachTextBox([](TextBox& box) { box.setEnabled(true); });
    disableComputed();
    for (screen::Control* list : {&f_.cboMatDisco, &f_.cboMatCubo, &f_.cboMatCre}) {
        list->setEnabled(true);
    }
    // Chosen C-009: hub and disc are shown again by the presentation of the type.
    presentation_.cboTipoPre_Click();
    if (!f_.proposal.isNew()) {
        loading_.msCargarPresupuesto(f_.proposal.key(), true);
    }
    if (f_.proposal.isAccepted()) {
        for (screen::Control* control :
             std::initializer_list<screen::Control*>{&controls_.cmdCambios, &f_.cboTipoPre, &f_.cboDobles}) {
            control->setEnabled(false);
        }
    } else {
        controls_.cmdManoObra.setEnabled(true);
    }
    const data::ProductType& type = f_.product();
    f_.cmdEng.setEnabled(type.toothing == data::Toothing::gear);
    if (type.widthsFromChain) {
        for (const int fromTable : {measure::totalWidth, measure::rim, measure::firstRim}) {
            f_.Text1(fromTable).setEnabled(false);
        }
    } else if (type.shape == data::ProductShape::rack) {
        runtime::ErrorTrap trap;
        trap([&] { f_.txtObservaciones.setFocus(); });
    }
    disableComputed();
    controls_.cmdManoObra.setEnabled(true);
}

void Buttons::disableComputed() {
    for (const int i : {measure::rackPitch, measure::rackToothHeight, measure::rackBody}) {
        f_.Text1(i).setEnabled(false);
    }
    for (const int i : {money::proposal, money::created, money::workOrder, money::accepted}) {
        f_.txtPesu(i).setEnabled(false);
    }
}

}  // namespace velmora::proposal
