#include "velmora/proposal/deleting.h"

#include "velmora/platform/runtime/numbers.h"

namespace velmora::proposal {

void Deleting::msEliminar() {
    const std::string number = f_.txtPesu(3).text();
    if (!runtime::IsNumeric(number)) {
        return;
    }
    if (!f_.txtPesu(13).text().empty()) {
        screen_.show({.text = "Error, No es posible eliminar un presupuesto aceptado", .icon = screen::Icon::critical});
        return;
    }
    const screen::Answer answer = screen_.show({.text = "realmente desea eliminar el presupuesto nº " + number,
                                                .icon = screen::Icon::exclamation,
                                                .buttons = screen::Buttons::yesNo});
    // Chosen C-104: on No everything stays on the form as it is.
    if (answer != screen::Answer::yes) {
        return;
    }
    // Kept K-112: the labour lines stay in their table; numbers are never given twice, so no other proposal gets them.
    session_.Connection().execute("delete from dpi where dpi_id = " + number);
    startAnew();
}

void Deleting::startAnew() {
    msLimpiarCampos();
    rooms_.materials.cboMatDisco_Click();
    rooms_.materials.cboMatCubo_Click();
    rooms_.history.msHistorico(false);
    rooms_.buttons.cmdCambios_Click();
    f_.cboTipoPre.setEnabled(true);
    f_.cboTipoPre.setFocus();
}

}  // namespace velmora::proposal
