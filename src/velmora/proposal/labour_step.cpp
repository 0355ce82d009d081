#include "velmora/proposal/labour_step.h"

#include "velmora/labour/frm_mano_obra.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

void LabourStep::cmdManoObra_Click() {
    const bool wasPending = !f_.proposal.isAccepted();
    const bool saved = keepLines();
    // Differs D-102: a proposal that was accepted or deleted meanwhile gets no sum: a message is shown, and the form
    // keeps what was typed.
    if (saved && wasPending && !peers_.saving.mayBeWritten()) {
        return;
    }
    // Kept K-106: this loads the saved proposal again, which discards what was typed since the last save.
    peers_.buttons.cmdCambios_Click();
    // Chosen C-102: after a refused save the rest is skipped, so that the refusal is shown once.
    if (!saved || f_.proposal.isNew()) {
        return;
    }
    const bool acceptedOnTheWay = wasPending && f_.proposal.isAccepted();
    if (!acceptedOnTheWay || peers_.saving.mayBeWritten()) {
        takeOverSum();
    }
}

bool LabourStep::keepLines() {
    labour::frmManoObra form(session_, desk_);
    form.bModificable = true;
    if (f_.proposal.isAccepted()) {
        for (screen::Button* button :
             {&form.fields().cmdNuevaLinea, &form.fields().cmdEditarLinea, &form.fields().cmdEliminarLinea}) {
            button->setEnabled(false);
        }
        form.bModificable = false;
    }
    if (f_.proposal.isNew() && !peers_.saving.msGrabar(true)) {
        return false;
    }
    form.nIdDpi = f_.proposal.key();
    form.msCargarLineas();
    desk_.screen.showModal(form);
    return true;
}

void LabourStep::takeOverSum() {
    const sql::Recordset sum = session_.Connection().execute(
        "Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = " + f_.proposal.number());
    f_.txtPesu(money::labour).setText(sum.eof() ? "0" : sum["Importe"].toText());
    // Kept K-107: the saw charge is added last but one and spread over the units, so the price saved after the labour
    // form differs from that of any other entry. Required as it is; it determines stored prices.
    for (const int field :
         {money::labour, money::material, money::subcontracted, money::sundries, money::sawCharge, money::piece}) {
        peers_.totals.msRecalcularImportes(field);
    }
    peers_.saving.msGrabar(true);
    if (peers_.saving.wasHeldBack()) {
        return;
    }
    peers_.buttons.cmdCambios_Click();
    if (f_.txtPesu(money::subcontracted).isEnabled()) {
        f_.txtPesu(money::subcontracted).setFocus();
    }
}

}  // namespace velmora::proposal
