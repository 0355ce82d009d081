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

using estimate::columnOf;
using estimate::FieldMap;
using estimate::StoredField;
using estimate::TextBox;
using estimate::TextField;
namespace column = estimate::column;

namespace {

constexpr std::array measures{measure::pitch,         measure::chainWidth, measure::roller,   measure::bore,
                              measure::pitchDiameter, measure::root,       measure::exterior, measure::hubDiameter,
                              measure::height,        measure::totalWidth, measure::rim,      measure::hubWidth};

constexpr std::array amounts{money::customerCode, money::customerName,  money::customerReference, money::material,
                             money::labour,       money::subcontracted, money::sundries,          money::piece,
                             money::pieces,       money::lot,           money::discCut,           money::sawCharge};

/// "" for null.
std::string textOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

std::string dateOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : runtime::Format(value.toDate(), "dd/mm/yyyy");
}

bool isOnePiece(const sql::Recordset& row) {
    return row[columnOf(measure::exterior)].toDouble() <= estimate::onePieceLimit;
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
            peers_.stored.remember(row);
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
    // The form shows the proposal before the load again, with its totals enabled.
    f_.bCargandoPropuesta = false;
    if (!refusal_.empty()) {
        screen_.show({.text = refusal_});
    }
}

// The event handlers called during a load recalculate fields. What they overwrite is put a second time, so that the
// form ends with the stored values.
bool Loading::putOnForm(const sql::Recordset& row, bool bEditable) {
    if (bEditable) {
        openForEditing();
    }
    const int type = row[columnOf(&FieldMap::cboTipoPre)].toLong();
    f_.cboTipoPre.setListIndex(type);
    f_.chkAcopla.setChecked(row[columnOf(&FieldMap::chkAcopla)].toLong() != 0);
    putPlainFields(row);
    if (!chooseMaterials(row)) {
        return false;
    }
    f_.cboTipoPre.setListIndex(type);
    putState(row);
    const data::ProductType& product = data::productType(type);
    if (product.chainList) {
        const sql::Value& chain = row[columnOf(&FieldMap::cboDobles)];
        f_.cboDobles.setListIndex(chain.isNull() ? 0 : chain.toLong());
        peers_.geometry.Text1_LostFocus(measure::teeth);
    }
    putMeasures(row);
    if (product.chainList && !(product.shape == data::ProductShape::twoRims && !product.hasHub())) {
        peers_.geometry.Text1_LostFocus(measure::hubWidth);
    }
    put(row, measure::keyway);
    put(row, measure::setScrews);
    putCuts(row);
    putAmounts(row);
    peers_.presentation.msPresentarEngranaje();
    if (!putByType(row)) {
        return false;
    }
    if (!bEditable) {
        closeForEditing();
    }
    setButtons();
    letStoredWidthsStand(row);
    f_.Text3(caption::totalOfTwoHubs).setText(f_.Text1(measure::totalWidth).text());
    peers_.history.msHistorico(false);
    f_.form.setEnabled(false);
    putAgain(row);
    showWhatFollows();
    return true;
}

void Loading::put(const sql::Recordset& row, TextField field) {
    estimate::put(field.in(f_), row[columnOf(field)]);
}

void Loading::putOrZero(const sql::Recordset& row, TextField field) {
    if (row[columnOf(field)].isNull()) {
        field.in(f_).setText("0");
    } else {
        put(row, field);
    }
}

void Loading::putMasked(const sql::Recordset& row, TextField field, const char* mask) {
    field.in(f_).setText(runtime::Format(row[columnOf(field)].toDouble(), mask));
}

void Loading::putPlainFields(const sql::Recordset& row) {
    for (const StoredField& field : estimate::storedFields()) {
        if (field.load == estimate::Load::plainly && field.holdsFor(f_.product())) {
            estimate::putPlainly(field, f_, row[field.column]);
        }
    }
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
    if (f_.product().shape == data::ProductShape::rack) {
        peers_.materials.msCargarMaterialesCre();
        return choose(row, &FieldMap::cboMatCre) ||
               refuse("Error, no se encuentra el indice del material para la cremallera");
    }
    if (isOnePiece(row)) {
        peers_.materials.msCargarMaterialesSinCubo();
    } else {
        peers_.materials.msCargarMaterialesConCubo();
    }
    bool found = choose(row, &FieldMap::cboMatDisco);
    if (!found && isOnePiece(row)) {
        peers_.materials.msCargarMaterialesConCubo();
        found = choose(row, &FieldMap::cboMatDisco);
    }
    if (!found) {
        return refuse("Error, no se encuentra el indice del material para el disco");
    }
    return choose(row, &FieldMap::cboMatCubo) || refuse("Error, no se encuentra el ndice del material para el cubo");
}

bool Loading::choose(const sql::Recordset& row, estimate::ComboBox FieldMap::*materials) const {
    const sql::Value& id = row[columnOf(materials)];
    estimate::ComboBox& list = f_.*materials;
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
    // What was typed belongs to the proposal shown before, except in the load that follows a save.
    if (!f_.bCargandoDisco) {
        f_.typed.forget();
    }
    // Chosen C-061: the number stands plain; the mask of six digits belongs to the lists.
    estimate::put(f_.txtPesu(money::proposal), row[column::number]);
    f_.txtPesu(money::workOrder).setText(textOrNothing(row[column::order]));
    f_.txtPesu(money::created).setText(dateOrNothing(row[column::created]));
    f_.txtPesu(money::accepted).setText(dateOrNothing(row[column::accepted]));
    put(row, measure::teeth);
}

void Loading::putMeasures(const sql::Recordset& row) {
    for (const measure::Index field : measures) {
        put(row, field);
    }
}

void Loading::putCuts(const sql::Recordset& row) {
    put(row, cut::discDiameter);
    put(row, cut::discWidth);
    put(row, cut::discWeight);
    put(row, money::discPrice);
    put(row, money::discAmount);
    putOrZero(row, cut::discInner);
    put(row, cut::hubDiameter);
    put(row, cut::hubLength);
    put(row, cut::hubWeight);
    put(row, money::hubPrice);
    put(row, money::hubAmount);
    putOrZero(row, cut::hubInner);
}

void Loading::putAmounts(const sql::Recordset& row) {
    for (const money::Index field : amounts) {
        // Differs D-175: a null name is shown as empty; raising error 94 for it would make the proposal unreadable.
        if (field == money::customerName && row[columnOf(field)].isNull()) {
            f_.txtPesu(field).setText("");
        } else {
            put(row, field);
        }
    }
    f_.txtObservaciones.setText(textOrNothing(row[columnOf(&FieldMap::txtObservaciones)]));
    put(row, &FieldMap::txtModulo);
}

bool Loading::putByType(const sql::Recordset& row) {
    const data::ProductType& type = f_.product();
    if (type.chainList) {
        // Kept K-016: a multiple product without its gap ends the load here, without a message.
        if (row[columnOf(measure::gap)].isNull()) {
            return false;
        }
        put(row, measure::gap);
        put(row, measure::firstRim);
        put(row, doubleSketch::gap);
        put(row, doubleSketch::hubHeight);
        if (type.number == data::tripleSprocket) {
            put(row, measure::totalWidth);
            put(row, measure::rim);
            put(row, measure::hubWidth);
        }
        peers_.geometry.Text1_LostFocus(measure::gap);
    } else if (type.secondHubLoaded) {
        // Kept K-017: only the sprocket's second hub is loaded; the pulley's fields stay as they were and count as
        // unknown until the user changes one of them.
        put(row, measure::secondHubDiameter);
        put(row, measure::secondHubWidth);
        peers_.geometry.Text1_LostFocus(measure::gap);
    } else if (type.shape == data::ProductShape::rack) {
        putRack(row);
    }
    return true;
}

void Loading::putRack(const sql::Recordset& row) {
    put(row, measure::rackModule);
    put(row, measure::rackPitch);
    put(row, measure::rackToothHeight);
    peers_.geometry.Text1_LostFocus(measure::rackModule);
    // Differs D-007: pitch and tooth height stand as stored, where leaving the module works them out from it.
    putMasked(row, measure::rackPitch, "#,##0.00");
    putMasked(row, measure::rackToothHeight, "#,##0.00");
    for (const measure::Index field : {measure::rackHeight, measure::rackLength, measure::rackWidth}) {
        put(row, field);
        peers_.geometry.Text1_LostFocus(field);
    }
    put(row, cut::barLength);
    put(row, cut::barWidth);
    put(row, cut::barThickness);
    put(row, cut::barWeight);
    put(row, money::barPrice);
    peers_.totals.txtPesu_LostFocus(money::barPrice);
    put(row, money::barAmount);
    peers_.totals.txtPesu_LostFocus(money::barAmount);
    putRackCut(row);
}

// Differs D-009: the cut of a rack, which no column stores, is calculated from the stored amount; otherwise the cut of
// the rack shown before would stay.
void Loading::putRackCut(const sql::Recordset& row) {
    const double cut =
        estimate::cutInBarLine(row[columnOf(money::barAmount)].toDouble(), row[columnOf(cut::barWeight)].toDouble(),
                               row[columnOf(money::barPrice)].toDouble());
    f_.txtPesu(money::barCut).setText(runtime::Format(cut, estimate::amountMask));
}

// Differs D-006: the widths of a multiple product and their copies on its sketches are the stored ones, not those that
// the event handlers have calculated; otherwise the next save would store different widths.
void Loading::letStoredWidthsStand(const sql::Recordset& row) {
    if (!f_.product().chainList) {
        return;
    }
    for (const measure::Index field : {measure::rim, measure::hubWidth, measure::hubDiameter, measure::totalWidth}) {
        put(row, field);
    }
    peers_.doubles.repeatOnMultipleSketches();
}

/// Fields that depend on others, put last: those of the variable sketch, and the approximate weight.
void Loading::showWhatFollows() {
    peers_.doubles.repeatOnVariableSketch();
    // Differs D-013: the weight and formula of the piece shown before are cleared; these two types have written their
    // own.
    if (f_.type() != data::plainSprocket && f_.type() != data::variableSprocket) {
        peers_.totals.clearFormula();
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
    if (f_.product().shape == data::ProductShape::rack) {
        putRack(row);
    } else {
        putCuts(row);
        put(row, &FieldMap::txtModulo);
    }
    put(row, money::discCut);
    put(row, money::sawCharge);
    f_.txtObservaciones.setText(textOrNothing(row[columnOf(&FieldMap::txtObservaciones)]));
}

void Loading::finish() {
    if (f_.type() == data::plainSprocket) {
        peers_.totals.msMostrarFormula();
    }
    f_.bCargandoPropuesta = false;
    // Kept K-061: a complete load has disabled the form, so that the remarks do not take the focus; if it were enabled,
    // the field left would run its calculations.
    if (f_.txtObservaciones.canTakeFocus()) {
        runtime::ErrorTrap trap;
        trap([&] { f_.txtObservaciones.setFocus(); });
    }
    f_.form.setEnabled(true);
}

}  // namespace velmora::proposal
