#include "velmora/estimate/disc_and_hub_costing.h"

#include "velmora/estimate/field_names.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;
using runtime::ErrorTrap;

namespace {

/// True when a material is chosen. The set stays closed while the list of materials is empty.
bool holdsRecord(const sql::Recordset& material) {
    return material.isOpen() && material.hasRows();
}

}  // namespace

double DiscAndHubCosting::discCut() {
    return sawCut(number(f_.Text4(cut::discDiameter)), cutPrices_.FnPrecioCorte(entryKey(f_.cboMatDisco)));
}

StockLine DiscAndHubCosting::discLine(double cut) const {
    return {.weight = number(f_.Text4(cut::discWeight)), .price = number(f_.txtPesu(money::discPrice)), .cut = cut};
}

StockLine DiscAndHubCosting::hubLine(double cut) const {
    return {.weight = number(f_.Text4(cut::hubWeight)), .price = number(f_.txtPesu(money::hubPrice)), .cut = cut};
}

void DiscAndHubCosting::msCorteDisco() {
    ErrorTrap trap;
    trap([&] { put(f_.txtPesu(money::discCut), discCut()); });
}

// Kept K-009: the exterior diameter is compared as text with "120", "250" and "500", by character codes: "98" is above
// all three, "105" below the first. Required as it is; it determines stored cuts.
void DiscAndHubCosting::msCalcularDisco() {
    if (f_.bCargandoDisco) {
        return;
    }
    if (sawnFromRound(f_.Text1(measure::exterior).text())) {
        put(f_.Text4(cut::discDiameter), number(f_.Text1(measure::exterior)) + diameterAllowance);
        put(f_.Text4(cut::discWidth), number(f_.Text1(measure::totalWidth)) + sawAllowance);
    } else {
        put(f_.Text4(cut::discWidth), thicknessByText());
        put(f_.Text4(cut::discDiameter), number(f_.Text1(measure::exterior)) + diameterAllowance);
    }
    msCalcularGrueso();
}

double DiscAndHubCosting::thicknessByText() const {
    const std::string& exterior = f_.Text1(measure::exterior).text();
    if (sawnFromRound(exterior)) {
        return number(f_.Text1(measure::totalWidth)) + sawAllowance;
    }
    return number(f_.Text1(measure::rim)) + plateAllowance(exterior);
}

void DiscAndHubCosting::msCalcularGrueso() {
    if (!f_.Text4(cut::discWidth).holdsNumber()) {
        return;
    }
    ErrorTrap trap;
    double de = 0;
    trap([&] {
        de = FnDmexterior(number(f_.Text1(measure::pitchDiameter)), number(f_.Text1(measure::teeth)),
                          number(f_.Text1(measure::roller)));
    });
    if (de == 0 || trap.failed()) {
        return;
    }
    if (!f_.product().cutFromPlate && de <= onePieceLimit) {
        trap([&] { put(f_.Text4(cut::discWidth), number(f_.Text1(measure::totalWidth)) + sawAllowance); });
        return;
    }
    // Differs D-001: this runs at each key in the widths; a field that is empty between two keys leaves the sizes as
    // they were and counts as no rim, instead of raising an error.
    trap([&] { msCalcularCubo(); });
    std::int32_t n = 0;
    trap([&] { n = runtime::CLng(numberOrZero(f_.Text1(measure::rim))); });
    if (n == 0) {
        return;
    }
    trap([&] {
        const int step = commercialThickness(n, (*f_.rsMatDisco)["PARDPI_HIERRO"].toBool());
        put(f_.Text4(cut::discWidth), step != 0 ? step : thicknessByText());
    });
}

void DiscAndHubCosting::msCalcularCubo() {
    if (f_.product().shape == data::ProductShape::variable) {
        discAndHub(f_.Text1(measure::totalWidth));
    } else if (number(f_.Text1(measure::exterior)) > onePieceLimit) {
        discAndHub(f_.Text1(measure::hubWidth));
    } else {
        onePiece();
    }
}

void DiscAndHubCosting::discAndHub(const TextBox& hubLength) {
    f_.fraCubo.setEnabled(true);
    f_.txtPesu(money::hubCut).setText("0,00");
    if (holdsRecord(*f_.rsMatCubo) && !f_.bCargandoCubo) {
        put(f_.txtPesu(money::hubCost), (*f_.rsMatCubo)["art_pco"]);
        put(f_.txtPesu(money::hubPrice), (*f_.rsMatCubo)["art_pve"]);
        priceHub();
    }
    put(f_.Text4(cut::hubDiameter), hubStockDiameter(number(f_.Text1(measure::hubDiameter))));
    // The length is written twice, rounded up to a multiple of 5 and then unrounded: each write recalculates the
    // weight.
    put(f_.Text4(cut::hubLength), FnMultiplo(number(hubLength) + sawAllowance, 5));
    put(f_.Text4(cut::hubLength), number(hubLength) + sawAllowance);
    f_.lblCuboProceso.setVisible(false);
    f_.fraMatDisco.setCaption("Material del Disco");
}

void DiscAndHubCosting::priceHub() {
    double x = 0;
    if (number(f_.Text4(cut::hubWeight)) > 0) {
        x = totals_.hubCut();
        put(f_.txtPesu(money::hubCut), x);
    } else {
        f_.txtPesu(money::hubCut).setText("0,00");
    }
    put(f_.txtPesu(money::hubAmount), lineRoundedOnce(hubLine(x)));
}

void DiscAndHubCosting::onePiece() {
    f_.fraCubo.setEnabled(false);
    for (TextBox* box : {&f_.Text4(cut::hubDiameter), &f_.Text4(cut::hubLength), &f_.Text4(cut::hubWeight),
                         &f_.txtPesu(money::hubCost), &f_.txtPesu(money::hubCut), &f_.txtPesu(money::hubPrice),
                         &f_.txtPesu(money::hubAmount)}) {
        box->setText("0");
    }
    showProcess(f_.lblCuboProceso);
    f_.fraMatDisco.setCaption("Material del Piñon");
    put(f_.txtPesu(money::discCut), discCut());
}

// Chosen C-004: the captions follow the exterior diameter as it changes.
void DiscAndHubCosting::msMostrarProcesoCubo() {
    showProcess(f_.lblCuboProceso);
    showProcess(f_.lblDiscoProceso);
}

// Differs D-012: both captions stay hidden without an exterior diameter, also on the empty form, which would otherwise
// be called a one-piece round.
void DiscAndHubCosting::showProcess(Label& caption) const {
    const double exterior = numberOrZero(f_.Text1(measure::exterior));
    caption.setForeColor(screen::colors::blue);
    caption.setVisible(exterior > 0 && exterior <= onePieceLimit);
}

void DiscAndHubCosting::showInnerDiameter(const sql::Recordset& material, TextBox& box, Label& label) {
    const bool tube = isTube(material["art_for"]);
    box.setVisible(tube);
    label.setVisible(tube);
}

void DiscAndHubCosting::rsMatDisco_MoveComplete() {
    if (f_.bCargandoDisco) {
        return;
    }
    msCalcularDisco();
    const sql::Recordset& material = *f_.rsMatDisco;
    if (!material.hasRows()) {
        return;
    }
    showInnerDiameter(material, f_.Text4(cut::discInner), f_.D(innerLabel::disc));
    if (f_.bCargandoCubo) {
        return;
    }
    put(f_.txtPesu(money::discCost), material["art_pco"]);
    put(f_.txtPesu(money::discPrice), material["art_pve"]);
    if (number(f_.Text4(cut::discWeight)) > 0) {
        put(f_.txtPesu(money::discCut), discCut());
    } else {
        f_.txtPesu(money::discCut).setText("0,00");
    }
    put(f_.txtPesu(money::discAmount), lineRoundedOnce(discLine(numberOrZero(f_.txtPesu(money::discCut)))));
}

void DiscAndHubCosting::rsMatCubo_MoveComplete() {
    if (f_.bCargandoDisco) {
        return;
    }
    msCalcularCubo();
    const sql::Recordset& material = *f_.rsMatCubo;
    if (!material.hasRows()) {
        return;
    }
    showInnerDiameter(material, f_.Text4(cut::hubInner), f_.D(innerLabel::hub));
    if (f_.bCargandoDisco || f_.bCargandoCubo) {
        return;
    }
    put(f_.txtPesu(money::hubCost), material["art_pco"]);
    put(f_.txtPesu(money::hubPrice), material["art_pve"]);
    priceHub();
}

void DiscAndHubCosting::Text4_Change(int Index) {
    f_.noteChange(f_.Text4(Index));
    switch (Index) {
        case cut::discWidth:
        case cut::discDiameter:
            discChanged();
            break;
        case cut::hubDiameter:
        case cut::hubLength:
            hubChanged();
            break;
        case cut::discWeight:
            totals_.msRecalcularImportes(money::discCut);
            break;
        case cut::hubWeight:
            totals_.msRecalcularImportes(money::hubPrice);
            break;
        default:
            rackChanged(Index);
            break;
    }
}

// Kept K-010: this event groups the indexes differently from the change: the hub's sizes count as the disc's. Required
// as it is; it determines stored weights and amounts. Chosen C-005: it is the double click. Leaving a field never
// raises it, so a typed weight or amount stays until its sizes or prices change.
void DiscAndHubCosting::Text4_DblClick(int Index) {
    if (Index <= cut::hubLength) {
        discChanged();
    } else if (Index == cut::discWeight) {
        totals_.msRecalcularImportes(money::discCut);
    } else if (Index <= cut::hubInner) {
        hubChanged();
    } else {
        rackChanged(Index);
    }
}

void DiscAndHubCosting::discChanged() {
    ErrorTrap trap;
    trap([&] {
        const sql::Recordset& material = *f_.rsMatDisco;
        put(f_.Text4(cut::discWeight),
            weights_.FnPeso(material["art_for"], 1, f_.Text4(cut::discWidth), 1.0, 1.0, f_.Text4(cut::discDiameter),
                            f_.Text4(cut::discInner), material["art_fac"]));
    });
    if (trap.condition([&] { return number(f_.Text1(measure::exterior)) <= onePieceLimit; })) {
        trap([&] { put(f_.txtPesu(money::discCut), discCut()); });
    }
    trap([&] { put(f_.txtPesu(money::discAmount), lineRoundedOnce(discLine(number(f_.txtPesu(money::discCut))))); });
}

void DiscAndHubCosting::hubChanged() {
    ErrorTrap trap;
    double oneHub = 0;
    trap([&] {
        const sql::Recordset& material = *f_.rsMatCubo;
        oneHub = weights_.FnPeso(material["art_for"], 1, number(f_.Text4(cut::hubLength)) + hubWeightAllowance, 1.0,
                                 1.0, f_.Text4(cut::hubDiameter), f_.Text4(cut::hubInner), material["art_fac"]);
        put(f_.Text4(cut::hubWeight), oneHub);
    });
    if (f_.product().hubs == data::Hubs::twoAlike) {
        // Chosen C-006: the weight of one hub, doubled.
        trap([&] { put(f_.Text4(cut::hubWeight), round2(oneHub + number(f_.Text4(cut::hubWeight)))); });
    }
    double cut = 0;
    if (trap.condition([&] { return number(f_.Text4(cut::hubWeight)) > 0; })) {
        trap([&] {
            cut = cents(totals_.hubCut());
            put(f_.txtPesu(money::hubCut), cut);
        });
    } else {
        trap([&] { f_.txtPesu(money::hubCut).setText("0,00"); });
    }
    trap([&] { put(f_.txtPesu(money::hubAmount), lineRoundedOnce(hubLine(cut))); });
}

void DiscAndHubCosting::writeRackWeight() {
    ErrorTrap trap;
    trap([&] { f_.Text4(cut::barWeight).setText(runtime::Format(weights_.rackWeight(), amountMask)); });
}

void DiscAndHubCosting::rackChanged(int Index) {
    if (Index < cut::barLength) {
        return;
    }
    if (Index <= cut::barThickness) {
        writeRackWeight();
    }
    totals_.msRecalcularImportes(money::barPrice);
}

void DiscAndHubCosting::Text4_LostFocus(int Index) {
    const TypedFields::ProgramWrites masks(f_.typed);
    TextBox& box = f_.Text4(Index);
    if (!box.holdsNumber()) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box, "#0.00");
    if (f_.product().shape != data::ProductShape::rack) {
        return;
    }
    if (Index >= cut::barLength && Index <= cut::barThickness) {
        writeRackWeight();
        // Kept K-175: while a size is typed the bar is priced with the cut of the previous size; its weight follows
        // each key press. Required as it is; it determines amounts on the screen.
        totals_.writeRackCut();
        totals_.msRecalcularImportes(cut::barThickness);
    } else if (Index >= cut::barWeight) {
        totals_.msRecalcularImportes(money::barPrice);
    }
}

}  // namespace velmora::estimate
