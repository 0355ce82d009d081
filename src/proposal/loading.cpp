#include "velmora/proposal/loading.h"

#include <array>

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::proposal {

using estimate::put;
using estimate::TextBox;

namespace {

/// A field of a control array and the column that fills it.
struct Stored {
    int field;
    const char* column;
};

constexpr std::array measures{
    Stored{0, "DPI_pas"},   Stored{8, "DPI_ac"},          Stored{2, "DPI_rodillo"}, Stored{7, "DPI_Eje"},
    Stored{3, "DPI_DmPri"}, Stored{4, "DPI_DmFon"},       Stored{15, "DPI_DmExt"},  Stored{16, "DPI_DmCub"},
    Stored{6, "DPI_Alt"},   Stored{17, "DPI_AnchoTotal"}, Stored{9, "DPI_llanta"},  Stored{10, "DPI_AnchoCubo"},
};

constexpr int nameOfCustomer = 1;  ///< in txtPesu

constexpr std::array amounts{
    Stored{0, "DPI_CodCliente"},
    Stored{1, "DPI_NomCliente"},
    Stored{2, "DPI_RefCli"},
    Stored{7, "DPI_ImpMat"},
    Stored{8, "DPI_ImpMO"},
    Stored{9, "DPI_ImpTS"},
    Stored{5, "DPI_ImpVA"},
    Stored{10, "DPI_ImpTP"},
    Stored{11, "dpi_unidades"},
    Stored{12, "DPI_Importe"},
    Stored{16, "DPI_CosteCorteDisco"},
    Stored{14, "DPI_FijoSierra"},
};

/// "" for null.
std::string textOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

std::string dateOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : runtime::Format(value.toDate(), "dd/mm/yyyy");
}

void putOrZero(TextBox& box, const sql::Value& value) {
    if (value.isNull()) {
        box.setText("0");
    } else {
        put(box, value);
    }
}

bool isOnePiece(const sql::Recordset& row) {
    return row["DPI_DmExt"].toDouble() <= estimate::onePieceLimit;
}

}  // namespace

bool Loading::msCargarPresupuesto(std::int32_t nIdDpi, bool bEditable) {
    f_.txtExtra.setText("");
    // Chosen C-063: a load guards the totals alone; the guards of disc and hub belong to the save.
    f_.bCargandoPropuesta = true;
    f_.cboTipoPre.setEnabled(false);
    try {
        const sql::Recordset row =
            session_.Connection().execute("select * from DPI where DPI_ID=" + runtime::CStr(std::int64_t{nIdDpi}));
        if (!row.eof() && !row.bof() && !putOnForm(row, bEditable)) {
            return false;
        }
        finish();
        return true;
    } catch (const runtime::RuntimeError&) {
        // Differs D-060: an error on the way gives the totals and the form back before it goes on to the user.
        f_.bCargandoPropuesta = false;
        f_.form.setEnabled(true);
        throw;
    }
}

// The handlers called on the way work out fields anew; what they write over is assigned a second time, so that the
// stored figures stand at the end.
bool Loading::putOnForm(const sql::Recordset& row, bool bEditable) {
    if (bEditable) {
        openForEditing();
    }
    const int type = row["DPI_tipo"].toLong();
    f_.cboTipoPre.setListIndex(type);
    f_.chkAcopla.setChecked(row["DPI_Acopla"].toLong() != 0);
    put(f_.txtExtra, row["DPI_Extra"]);
    put(f_.txtCPro, row["DPI_ProTex"]);
    if (!row["DPI_HERRAMIENTA"].isNull()) {
        f_.cboHerramienta.setText(row["DPI_HERRAMIENTA"].toText());
    }
    if (!chooseMaterials(row)) {
        return false;
    }
    f_.cboTipoPre.setListIndex(type);
    putState(row);
    if (data::hasChainList(type)) {
        const sql::Value& chain = row["DPI_PDM_Tipo"];
        f_.cboDobles.setListIndex(chain.isNull() ? 0 : chain.toLong());
        rooms_.geometry.Text1_LostFocus(1);
    }
    putMeasures(row);
    if (data::hasChainList(type) && !data::isDoubleDisc(type)) {
        rooms_.geometry.Text1_LostFocus(10);
    }
    put(f_.Text1(12), row["dpi_chav"]);
    put(f_.Text1(13), row["dpi_pri"]);
    putCuts(row);
    putAmounts(row);
    rooms_.presentation.msPresentarEngranaje();
    if (!putByType(row)) {
        return false;
    }
    if (!bEditable) {
        closeForEditing();
    }
    setButtons();
    f_.Text3(5).setText(f_.Text1(17).text());
    rooms_.history.msHistorico(false);
    f_.form.setEnabled(false);
    putAgain(row);
    return true;
}

void Loading::openForEditing() {
    f_.forEachTextBox([](TextBox& box) { box.setEnabled(true); });
    for (screen::Control* list : {&f_.cboMatDisco, &f_.cboMatCubo, &f_.cboDobles}) {
        list->setEnabled(true);
    }
    f_.cboTipoPre.setEnabled(false);
    f_.cboMatCre.setEnabled(false);
}

void Loading::closeForEditing() {
    f_.forEachTextBox([](TextBox& box) { box.setEnabled(false); });
    for (screen::Control* list : {&f_.cboMatDisco, &f_.cboMatCubo, &f_.cboTipoPre, &f_.cboDobles}) {
        list->setEnabled(false);
    }
}

bool Loading::chooseMaterials(const sql::Recordset& row) {
    if (f_.type() == data::rack) {
        rooms_.materials.msCargarMaterialesCre();
        return choose(f_.cboMatCre, row["DPI_IdParDisco"]) ||
               refuse("Error, no se encuentra el indice del material para la cremallera");
    }
    if (isOnePiece(row)) {
        rooms_.materials.msCargarMaterialesSinCubo();
    } else {
        rooms_.materials.msCargarMaterialesConCubo();
    }
    bool found = choose(f_.cboMatDisco, row["DPI_IdParDisco"]);
    if (!found && isOnePiece(row)) {
        rooms_.materials.msCargarMaterialesConCubo();
        found = choose(f_.cboMatDisco, row["DPI_IdParDisco"]);
    }
    if (!found) {
        return refuse("Error, no se encuentra el indice del material para el disco");
    }
    return choose(f_.cboMatCubo, row["DPI_IdParcubo"]) ||
           refuse("Error, no se encuentra el ndice del material para el cubo");
}

bool Loading::choose(estimate::ComboBox& list, const sql::Value& id) const {
    if (id.isNull()) {
        return false;
    }
    const double wanted = id.toDouble();
    for (int i = 0; i < list.listCount(); ++i) {
        if (runtime::CInt(list.list(i).substr(0, 3)) == wanted) {
            list.setListIndex(i);
            return true;
        }
    }
    return false;
}

bool Loading::refuse(const char* message) {
    screen_.show({.text = message});
    f_.bCargandoPropuesta = false;
    return false;
}

void Loading::putState(const sql::Recordset& row) {
    // Chosen C-061: the number stands plain; the mask of six digits belongs to the lists.
    put(f_.txtPesu(3), row["dpi_id"]);
    f_.txtPesu(6).setText(textOrNothing(row["DPI_Orden"]));
    f_.txtPesu(4).setText(dateOrNothing(row["DPI_Fecha"]));
    f_.txtPesu(13).setText(dateOrNothing(row["DPI_FAcepta"]));
    put(f_.Text1(1), row["DPI_Z"]);
}

void Loading::putMeasures(const sql::Recordset& row) {
    for (const Stored& stored : measures) {
        put(f_.Text1(stored.field), row[stored.column]);
    }
}

void Loading::putCuts(const sql::Recordset& row) {
    put(f_.Text4(1), row["DPI_DisCortDM"]);
    put(f_.Text4(0), row["DPI_DisCortAN"]);
    put(f_.Text4(4), row["DPI_DisCortPESO"]);
    put(f_.txtPesu(21), row["DPI_DisPVE"]);
    put(f_.txtPesu(22), row["DPI_DisImporte"]);
    putOrZero(f_.Text4(6), row["DPI_DmInterno"]);
    put(f_.Text4(2), row["DPI_CubCortDM"]);
    put(f_.Text4(3), row["DPI_CubCortAN"]);
    put(f_.Text4(5), row["DPI_CubCortPESO"]);
    put(f_.txtPesu(24), row["DPI_CubPVE"]);
    put(f_.txtPesu(25), row["DPI_CubImporte"]);
    putOrZero(f_.Text4(7), row["DPI_CuboDmInterno"]);
}

void Loading::putAmounts(const sql::Recordset& row) {
    for (const Stored& stored : amounts) {
        const sql::Value& value = row[stored.column];
        // Differs D-175: a name that the row lacks is empty, where its null would keep the form shut.
        if (stored.field == nameOfCustomer && value.isNull()) {
            f_.txtPesu(stored.field).setText("");
        } else {
            put(f_.txtPesu(stored.field), value);
        }
    }
    f_.txtObservaciones.setText(textOrNothing(row["DPI_Obser"]));
    put(f_.txtModulo, row["DPI_modulo"]);
}

bool Loading::putByType(const sql::Recordset& row) {
    const int type = f_.type();
    if (data::hasChainList(type)) {
        // Kept K-016: a multiple product without its gap ends the load here, and the totals stay off until the next
        // load or save.
        if (row["DPI_PDM_X"].isNull()) {
            return false;
        }
        put(f_.Text1(11), row["DPI_PDM_X"]);
        put(f_.Text1(5), row["DPI_PDM_B1"]);
        put(f_.txtPDM(7), row["DPI_PDM_X"]);
        put(f_.txtPDM(2), row["DPI_PDM_h1"]);
        if (type == data::tripleSprocket) {
            put(f_.Text1(17), row["DPI_AnchoTotal"]);
            put(f_.Text1(9), row["DPI_llanta"]);
            put(f_.Text1(10), row["DPI_AnchoCubo"]);
        }
        rooms_.geometry.Text1_LostFocus(11);
    } else if (type == data::variableSprocket) {
        // Kept K-017: only the sprocket's second hub comes back, the pulley's does not.
        put(f_.Text1(18), row["DPI_PDM_B1"]);
        put(f_.Text1(14), row["DPI_PDM_h1"]);
        rooms_.geometry.Text1_LostFocus(11);
    } else if (type == data::rack) {
        putRack(row);
    }
    return true;
}

void Loading::putRack(const sql::Recordset& row) {
    put(f_.Text1(19), row["DPI_modulo"]);
    put(f_.Text1(20), row["DPI_pas"]);
    put(f_.Text1(21), row["DPI_ac"]);
    rooms_.geometry.Text1_LostFocus(19);
    for (const Stored& stored : {Stored{22, "DPI_Alt"}, Stored{24, "DPI_llanta"}, Stored{25, "DPI_AnchoCubo"}}) {
        put(f_.Text1(stored.field), row[stored.column]);
        rooms_.geometry.Text1_LostFocus(stored.field);
    }
    put(f_.Text4(50), row["DPI_DisCortDM"]);
    put(f_.Text4(51), row["DPI_DisCortAN"]);
    put(f_.Text4(52), row["DPI_DmFon"]);
    put(f_.Text4(53), row["DPI_DisCortPESO"]);
    put(f_.txtPesu(56), row["DPI_DisPVE"]);
    rooms_.totals.txtPesu_LostFocus(56);
    put(f_.txtPesu(57), row["DPI_DisImporte"]);
    rooms_.totals.txtPesu_LostFocus(57);
}

void Loading::setButtons() {
    if (!f_.txtPesu(13).text().empty()) {
        controls_.cmdCambios.setEnabled(false);
    } else {
        // Kept K-060: the button goes off for a pending proposal although key F1 works on; the way back to editing
        // turns it on again, and users know the two states by it.
        controls_.cmdManoObra.setEnabled(false);
        controls_.cmdCambios.setEnabled(true);
    }
}

void Loading::putAgain(const sql::Recordset& row) {
    if (f_.type() == data::rack) {
        putRack(row);
    } else {
        putCuts(row);
        put(f_.txtModulo, row["DPI_modulo"]);
    }
    put(f_.txtPesu(16), row["DPI_CosteCorteDisco"]);
    put(f_.txtPesu(14), row["DPI_FijoSierra"]);
    f_.txtObservaciones.setText(textOrNothing(row["DPI_Obser"]));
}

void Loading::finish() {
    if (f_.type() == data::plainSprocket) {
        rooms_.totals.msMostrarFormula();
    }
    f_.bCargandoPropuesta = false;
    // Kept K-061: a load that got to its end has disabled the form, so that the remarks do not take the focus; given
    // after enabling, the focus would leave the field in which the user was and run its calculations.
    runtime::ErrorTrap trap;
    trap([&] { f_.txtObservaciones.setFocus(); });
    f_.form.setEnabled(true);
}

}  // namespace velmora::proposal
