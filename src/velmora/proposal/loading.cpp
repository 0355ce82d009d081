#include "velmora/proposal/loading.h"

#include <array>

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/sql/kept_row.h"
#include "velmora/proposal/field_names.h"
#include "velmora/proposal/form_memory.h"

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
    Stored{measure::pitch, "DPI_pas"},           Stored{measure::chainWidth, "DPI_ac"},
    Stored{measure::roller, "DPI_rodillo"},      Stored{measure::bore, "DPI_Eje"},
    Stored{measure::pitchDiameter, "DPI_DmPri"}, Stored{measure::root, "DPI_DmFon"},
    Stored{measure::exterior, "DPI_DmExt"},      Stored{measure::hubDiameter, "DPI_DmCub"},
    Stored{measure::height, "DPI_Alt"},          Stored{measure::totalWidth, "DPI_AnchoTotal"},
    Stored{measure::rim, "DPI_llanta"},          Stored{measure::hubWidth, "DPI_AnchoCubo"},
};

constexpr std::array amounts{
    Stored{money::customerCode, "DPI_CodCliente"},
    Stored{money::customerName, "DPI_NomCliente"},
    Stored{money::customerReference, "DPI_RefCli"},
    Stored{money::material, "DPI_ImpMat"},
    Stored{money::labour, "DPI_ImpMO"},
    Stored{money::subcontracted, "DPI_ImpTS"},
    Stored{money::sundries, "DPI_ImpVA"},
    Stored{money::piece, "DPI_ImpTP"},
    Stored{money::pieces, "dpi_unidades"},
    Stored{money::lot, "DPI_Importe"},
    Stored{money::discCut, "DPI_CosteCorteDisco"},
    Stored{money::sawCharge, "DPI_FijoSierra"},
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

void putMasked(TextBox& box, const sql::Value& value, const char* mask) {
    box.setText(runtime::Format(value.toDouble(), mask));
}

bool isOnePiece(const sql::Recordset& row) {
    return row["DPI_DmExt"].toDouble() <= estimate::onePieceLimit;
}

}  // namespace

bool Loading::msCargarPresupuesto(std::int32_t nIdDpi, bool bEditable) {
    // Differs D-061: a load that fails, by an error, a material or a gap that is missing, leaves the form as it was:
    // half of it would show one proposal under the number of another, and the next save would write it so.
    const FormMemory before(f_);
    refusal_.clear();
    f_.txtExtra.setText("");
    // Chosen C-063: a load guards the totals alone; the guards of disc and hub belong to the save.
    f_.bCargandoPropuesta = true;
    f_.cboTipoPre.setEnabled(false);
    try {
        const sql::Recordset row = sql::keptRow(
            session_.Connection().execute("select * from DPI where DPI_ID=" + runtime::CStr(std::int64_t{nIdDpi})));
        if (!row.eof() && !putOnForm(row, bEditable)) {
            giveUp(before);
            return false;
        }
        finish();
        if (!row.eof()) {
            rooms_.stored.remember(row);
        }
        return true;
    } catch (...) {
        // Differs D-060: an error on the way gives the totals and the form back before it goes on to the user.
        before.restore();
        f_.bCargandoPropuesta = false;
        f_.form.setEnabled(true);
        throw;
    }
}

void Loading::giveUp(const FormMemory& before) {
    before.restore();
    // The totals of what stands on the form again are worked out as before.
    f_.bCargandoPropuesta = false;
    if (!refusal_.empty()) {
        screen_.show({.text = refusal_});
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
        rooms_.geometry.Text1_LostFocus(measure::teeth);
    }
    putMeasures(row);
    if (data::hasChainList(type) && !data::isDoubleDisc(type)) {
        rooms_.geometry.Text1_LostFocus(measure::hubWidth);
    }
    put(f_.Text1(measure::keyway), row["dpi_chav"]);
    put(f_.Text1(measure::setScrews), row["dpi_pri"]);
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
    letStoredWidthsStand(row);
    f_.Text3(caption::totalOfTwoHubs).setText(f_.Text1(measure::totalWidth).text());
    rooms_.history.msHistorico(false);
    f_.form.setEnabled(false);
    putAgain(row);
    showWhatFollows();
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
    refusal_ = message;
    return false;
}

void Loading::putState(const sql::Recordset& row) {
    // What was typed belongs to the proposal before, but for the load after one's own save.
    if (!f_.bCargandoDisco) {
        f_.typed.forget();
    }
    // Chosen C-061: the number stands plain; the mask of six digits belongs to the lists.
    put(f_.txtPesu(money::proposal), row["dpi_id"]);
    f_.txtPesu(money::workOrder).setText(textOrNothing(row["DPI_Orden"]));
    f_.txtPesu(money::created).setText(dateOrNothing(row["DPI_Fecha"]));
    f_.txtPesu(money::accepted).setText(dateOrNothing(row["DPI_FAcepta"]));
    put(f_.Text1(measure::teeth), row["DPI_Z"]);
}

void Loading::putMeasures(const sql::Recordset& row) {
    for (const Stored& stored : measures) {
        put(f_.Text1(stored.field), row[stored.column]);
    }
}

void Loading::putCuts(const sql::Recordset& row) {
    put(f_.Text4(cut::discDiameter), row["DPI_DisCortDM"]);
    put(f_.Text4(cut::discWidth), row["DPI_DisCortAN"]);
    put(f_.Text4(cut::discWeight), row["DPI_DisCortPESO"]);
    put(f_.txtPesu(money::discPrice), row["DPI_DisPVE"]);
    put(f_.txtPesu(money::discAmount), row["DPI_DisImporte"]);
    putOrZero(f_.Text4(cut::discInner), row["DPI_DmInterno"]);
    put(f_.Text4(cut::hubDiameter), row["DPI_CubCortDM"]);
    put(f_.Text4(cut::hubLength), row["DPI_CubCortAN"]);
    put(f_.Text4(cut::hubWeight), row["DPI_CubCortPESO"]);
    put(f_.txtPesu(money::hubPrice), row["DPI_CubPVE"]);
    put(f_.txtPesu(money::hubAmount), row["DPI_CubImporte"]);
    putOrZero(f_.Text4(cut::hubInner), row["DPI_CuboDmInterno"]);
}

void Loading::putAmounts(const sql::Recordset& row) {
    for (const Stored& stored : amounts) {
        const sql::Value& value = row[stored.column];
        // Differs D-175: a name that the row lacks is empty, where its null would keep the form shut.
        if (stored.field == money::customerName && value.isNull()) {
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
        // Kept K-016: a multiple product without its gap ends the load here, without a message.
        if (row["DPI_PDM_X"].isNull()) {
            return false;
        }
        put(f_.Text1(measure::gap), row["DPI_PDM_X"]);
        put(f_.Text1(measure::firstRim), row["DPI_PDM_B1"]);
        put(f_.txtPDM(doubleSketch::gap), row["DPI_PDM_X"]);
        put(f_.txtPDM(doubleSketch::hubHeight), row["DPI_PDM_h1"]);
        if (type == data::tripleSprocket) {
            put(f_.Text1(measure::totalWidth), row["DPI_AnchoTotal"]);
            put(f_.Text1(measure::rim), row["DPI_llanta"]);
            put(f_.Text1(measure::hubWidth), row["DPI_AnchoCubo"]);
        }
        rooms_.geometry.Text1_LostFocus(measure::gap);
    } else if (type == data::variableSprocket) {
        // Kept K-017: only the sprocket's second hub is loaded; the pulley's fields stay as they were and count as
        // unknown until the user changes one of them.
        put(f_.Text1(measure::secondHubDiameter), row["DPI_PDM_B1"]);
        put(f_.Text1(measure::secondHubWidth), row["DPI_PDM_h1"]);
        rooms_.geometry.Text1_LostFocus(measure::gap);
    } else if (type == data::rack) {
        putRack(row);
    }
    return true;
}

void Loading::putRack(const sql::Recordset& row) {
    put(f_.Text1(measure::rackModule), row["DPI_modulo"]);
    put(f_.Text1(measure::rackPitch), row["DPI_pas"]);
    put(f_.Text1(measure::rackToothHeight), row["DPI_ac"]);
    rooms_.geometry.Text1_LostFocus(measure::rackModule);
    // Differs D-007: pitch and tooth height stand as stored, where leaving the module works them out from it.
    putMasked(f_.Text1(measure::rackPitch), row["DPI_pas"], "#,##0.00");
    putMasked(f_.Text1(measure::rackToothHeight), row["DPI_ac"], "#,##0.00");
    for (const Stored& stored : {Stored{measure::rackHeight, "DPI_Alt"}, Stored{measure::rackLength, "DPI_llanta"},
                                 Stored{measure::rackWidth, "DPI_AnchoCubo"}}) {
        put(f_.Text1(stored.field), row[stored.column]);
        rooms_.geometry.Text1_LostFocus(stored.field);
    }
    put(f_.Text4(cut::barLength), row["DPI_DisCortDM"]);
    put(f_.Text4(cut::barWidth), row["DPI_DisCortAN"]);
    put(f_.Text4(cut::barThickness), row["DPI_DmFon"]);
    put(f_.Text4(cut::barWeight), row["DPI_DisCortPESO"]);
    put(f_.txtPesu(money::barPrice), row["DPI_DisPVE"]);
    rooms_.totals.txtPesu_LostFocus(money::barPrice);
    put(f_.txtPesu(money::barAmount), row["DPI_DisImporte"]);
    rooms_.totals.txtPesu_LostFocus(money::barAmount);
    putRackCut(row);
}

// Differs D-009: no column holds the cut of a rack: it is what the stored amount leaves beside weight and price, where
// the rack before would leave its own.
void Loading::putRackCut(const sql::Recordset& row) {
    const double material = estimate::round2(row["DPI_DisCortPESO"].toDouble() * row["DPI_DisPVE"].toDouble());
    f_.txtPesu(money::barCut)
        .setText(runtime::Format(row["DPI_DisImporte"].toDouble() - material, estimate::amountMask));
}

// Differs D-006: the widths of a multiple product and their copies on its sketches are the row's, not those that the
// handlers on the way have worked out; saved again, it would be stored as another piece.
void Loading::letStoredWidthsStand(const sql::Recordset& row) {
    if (!data::hasChainList(f_.type())) {
        return;
    }
    for (const Stored& stored :
         {Stored{measure::rim, "DPI_llanta"}, Stored{measure::hubWidth, "DPI_AnchoCubo"},
          Stored{measure::hubDiameter, "DPI_DmCub"}, Stored{measure::totalWidth, "DPI_AnchoTotal"}}) {
        put(f_.Text1(stored.field), row[stored.column]);
    }
    rooms_.doubles.repeatOnMultipleSketches();
}

/// The figures that follow others, once these stand: those of the variable sketch, and the approximate weight.
void Loading::showWhatFollows() {
    rooms_.doubles.repeatOnVariableSketch();
    // Differs D-013: the weight and the words of another piece do not stay; types 0 and 10 have told their own.
    if (f_.type() != data::plainSprocket && f_.type() != data::variableSprocket) {
        rooms_.totals.clearFormula();
    }
}

void Loading::setButtons() {
    if (f_.proposal.isAccepted()) {
        controls_.cmdCambios.setEnabled(false);
    } else {
        // Kept K-060: the button is disabled for a pending proposal although key F1 still works; returning to editing
        // enables it again. Required as it is; users see the button.
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
    put(f_.txtPesu(money::discCut), row["DPI_CosteCorteDisco"]);
    put(f_.txtPesu(money::sawCharge), row["DPI_FijoSierra"]);
    f_.txtObservaciones.setText(textOrNothing(row["DPI_Obser"]));
}

void Loading::finish() {
    if (f_.type() == data::plainSprocket) {
        rooms_.totals.msMostrarFormula();
    }
    f_.bCargandoPropuesta = false;
    // Kept K-061: a complete load has disabled the form, so that the remarks do not take the focus; if it were enabled,
    // the field left would run its calculations.
    runtime::ErrorTrap trap;
    trap([&] { f_.txtObservaciones.setFocus(); });
    f_.form.setEnabled(true);
}

}  // namespace velmora::proposal
