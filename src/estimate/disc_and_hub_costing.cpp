#include "velmora/estimate/disc_and_hub_costing.h"

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;
using runtime::ErrorTrap;

namespace {

constexpr double sawAllowance = 3;        ///< mm added to a width that is sawn
constexpr double diameterAllowance = 5;   ///< mm added to a diameter that is turned
constexpr double hubWeightAllowance = 2;  ///< mm added to a hub's length for its weight only

/// A workshop without a material for it never opens the set.
bool holdsRecord(const sql::Recordset& material) {
    return material.isOpen() && material.hasRows();
}

}  // namespace

double DiscAndHubCosting::discCut() {
    return round2(number(f_.Text4(1)) * cutPrices_.FnPrecioCorte(entryKey(f_.cboMatDisco)));
}

void DiscAndHubCosting::msCorteDisco() {
    ErrorTrap trap;
    trap([&] { put(f_.txtPesu(16), discCut()); });
}

// Kept K-009: the exterior diameter stands against the texts "120", "250" and "500" by character codes: "98" is
// beyond all three, "105" within the first. The thickness step corrects most of it, and stored cuts show the rest.
void DiscAndHubCosting::msCalcularDisco() {
    if (f_.bCargandoDisco) {
        return;
    }
    if (standsAtOrBefore(f_.Text1(15).text(), "120")) {
        put(f_.Text4(1), number(f_.Text1(15)) + diameterAllowance);
        put(f_.Text4(0), number(f_.Text1(17)) + sawAllowance);
    } else {
        put(f_.Text4(0), thicknessByText());
        put(f_.Text4(1), number(f_.Text1(15)) + diameterAllowance);
    }
    msCalcularGrueso();
}

double DiscAndHubCosting::thicknessByText() const {
    const std::string& exterior = f_.Text1(15).text();
    if (standsAtOrBefore(exterior, "120")) {
        return number(f_.Text1(17)) + sawAllowance;
    }
    const double allowance = standsAtOrBefore(exterior, "250") ? 1 : standsAtOrBefore(exterior, "500") ? 2 : 3;
    return number(f_.Text1(9)) + allowance;
}

void DiscAndHubCosting::msCalcularGrueso() {
    if (!runtime::IsNumeric(f_.Text4(0).text())) {
        return;
    }
    ErrorTrap trap;
    double de = 0;
    trap([&] { de = FnDmexterior(number(f_.Text1(3)), number(f_.Text1(1)), number(f_.Text1(2))); });
    if (de == 0 || trap.failed()) {
        return;
    }
    if (!data::isCutFromPlate(f_.type()) && de <= onePieceLimit) {
        trap([&] { put(f_.Text4(0), number(f_.Text1(17)) + sawAllowance); });
        return;
    }
    // Differs D-001: this runs on a key stroke in the widths; a field that is empty for a moment leaves the sizes as
    // they were and counts as no rim, instead of an error box between two keys.
    trap([&] { msCalcularCubo(); });
    std::int32_t n = 0;
    trap([&] { n = runtime::CLng(numberOrZero(f_.Text1(9))); });
    if (n == 0) {
        return;
    }
    trap([&] {
        const int step = commercialThickness(n, (*f_.rsMatDisco)["PARDPI_HIERRO"].toBool());
        put(f_.Text4(0), step != 0 ? step : thicknessByText());
    });
}

void DiscAndHubCosting::msCalcularCubo() {
    if (data::isVariable(f_.type())) {
        discAndHub(f_.Text1(17));
    } else if (number(f_.Text1(15)) > onePieceLimit) {
        discAndHub(f_.Text1(10));
    } else {
        onePiece();
    }
}

void DiscAndHubCosting::discAndHub(const TextBox& hubLength) {
    f_.fraCubo.setEnabled(true);
    f_.txtPesu(15).setText("0,00");
    if (holdsRecord(*f_.rsMatCubo) && !f_.bCargandoCubo) {
        put(f_.txtPesu(23), (*f_.rsMatCubo)["art_pco"]);
        put(f_.txtPesu(24), (*f_.rsMatCubo)["art_pve"]);
        priceHub();
    }
    put(f_.Text4(2), FnMultiplo(number(f_.Text1(16)) + diameterAllowance, 5));
    // The length is first brought to a multiple of 5 and then written as it is: both changes are seen by the weight.
    put(f_.Text4(3), FnMultiplo(number(hubLength) + sawAllowance, 5));
    put(f_.Text4(3), number(hubLength) + sawAllowance);
    f_.lblCuboProceso.setVisible(false);
    f_.fraMatDisco.setCaption("Material del Disco");
}

void DiscAndHubCosting::priceHub() {
    double x = 0;
    if (number(f_.Text4(5)) > 0) {
        x = totals_.hubCut();
        put(f_.txtPesu(15), x);
    } else {
        f_.txtPesu(15).setText("0,00");
    }
    put(f_.txtPesu(25), round2(number(f_.Text4(5)) * number(f_.txtPesu(24)) + x));
}

void DiscAndHubCosting::onePiece() {
    f_.fraCubo.setEnabled(false);
    for (TextBox* box : {&f_.Text4(2), &f_.Text4(3), &f_.Text4(5), &f_.txtPesu(23), &f_.txtPesu(15), &f_.txtPesu(24),
                         &f_.txtPesu(25)}) {
        box->setText("0");
    }
    f_.lblCuboProceso.setVisible(true);
    f_.fraMatDisco.setCaption("Material del Piñon");
    put(f_.txtPesu(16), discCut());
}

// Chosen C-004: the captions follow the exterior diameter as it changes.
void DiscAndHubCosting::msMostrarProcesoCubo() {
    const bool onePiece = runtime::IsNumeric(f_.Text1(15).text()) && number(f_.Text1(15)) <= onePieceLimit;
    for (Label* label : {&f_.lblCuboProceso, &f_.lblDiscoProceso}) {
        label->setVisible(onePiece);
        label->setForeColor(screen::colors::blue);
    }
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
    showInnerDiameter(material, f_.Text4(6), f_.D(4));
    if (f_.bCargandoCubo) {
        return;
    }
    put(f_.txtPesu(20), material["art_pco"]);
    put(f_.txtPesu(21), material["art_pve"]);
    if (number(f_.Text4(4)) > 0) {
        put(f_.txtPesu(16), discCut());
    } else {
        f_.txtPesu(16).setText("0,00");
    }
    const double cut = numberOrZero(f_.txtPesu(16));
    put(f_.txtPesu(22), round2(cut + number(f_.Text4(4)) * number(f_.txtPesu(21))));
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
    showInnerDiameter(material, f_.Text4(7), f_.D(5));
    if (f_.bCargandoDisco || f_.bCargandoCubo) {
        return;
    }
    put(f_.txtPesu(23), material["art_pco"]);
    put(f_.txtPesu(24), material["art_pve"]);
    priceHub();
}

void DiscAndHubCosting::Text4_Change(int Index) {
    switch (Index) {
        case 0:
        case 1:
            discChanged();
            break;
        case 2:
        case 3:
            hubChanged();
            break;
        case 4:
            totals_.msRecalcularImportes(16);
            break;
        case 5:
            totals_.msRecalcularImportes(24);
            break;
        default:
            rackChanged(Index);
            break;
    }
}

// Kept K-010: this event groups the indexes otherwise than the change does: the hub's sizes count as the disc's.
// Chosen C-005: it is the double click. No way of leaving a field raises it: a weight or an amount that was typed stays
// until its sizes or prices change.
void DiscAndHubCosting::Text4_DblClick(int Index) {
    if (Index <= 3) {
        discChanged();
    } else if (Index == 4) {
        totals_.msRecalcularImportes(16);
    } else if (Index <= 8) {
        hubChanged();
    } else {
        rackChanged(Index);
    }
}

void DiscAndHubCosting::discChanged() {
    ErrorTrap trap;
    trap([&] {
        const sql::Recordset& material = *f_.rsMatDisco;
        put(f_.Text4(4), weights_.FnPeso(material["art_for"], 1, f_.Text4(0), 1.0, 1.0, f_.Text4(1), f_.Text4(6),
                                         material["art_fac"]));
    });
    if (trap.condition([&] { return number(f_.Text1(15)) <= onePieceLimit; })) {
        trap([&] { put(f_.txtPesu(16), discCut()); });
    }
    trap([&] { put(f_.txtPesu(22), round2(number(f_.txtPesu(21)) * number(f_.Text4(4)) + number(f_.txtPesu(16)))); });
}

void DiscAndHubCosting::hubChanged() {
    ErrorTrap trap;
    double oneHub = 0;
    trap([&] {
        const sql::Recordset& material = *f_.rsMatCubo;
        oneHub = weights_.FnPeso(material["art_for"], 1, number(f_.Text4(3)) + hubWeightAllowance, 1.0, 1.0,
                                 f_.Text4(2), f_.Text4(7), material["art_fac"]);
        put(f_.Text4(5), oneHub);
    });
    if (data::hasTwinHubs(f_.type())) {
        // Chosen C-006: the weight of one hub, doubled.
        trap([&] { put(f_.Text4(5), round2(oneHub + number(f_.Text4(5)))); });
    }
    double cut = 0;
    if (trap.condition([&] { return number(f_.Text4(5)) > 0; })) {
        trap([&] {
            cut = round2(totals_.hubCut());
            put(f_.txtPesu(15), cut);
        });
    } else {
        trap([&] { f_.txtPesu(15).setText("0,00"); });
    }
    trap([&] { put(f_.txtPesu(25), round2(number(f_.txtPesu(24)) * number(f_.Text4(5)) + cut)); });
}

void DiscAndHubCosting::writeRackWeight() {
    ErrorTrap trap;
    trap([&] { f_.Text4(53).setText(runtime::Format(weights_.rackWeight(), amountMask)); });
}

void DiscAndHubCosting::rackChanged(int Index) {
    if (Index < 50) {
        return;
    }
    if (Index <= 52) {
        writeRackWeight();
    }
    totals_.msRecalcularImportes(56);
}

void DiscAndHubCosting::Text4_LostFocus(int Index) {
    TextBox& box = f_.Text4(Index);
    if (!runtime::IsNumeric(box.text())) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box, "#0.00");
    if (f_.type() != data::rack) {
        return;
    }
    if (Index >= 50 && Index <= 52) {
        writeRackWeight();
        totals_.msRecalcularImportes(52);
    } else if (Index >= 53 && Index <= 56) {
        totals_.msRecalcularImportes(56);
    }
}

}  // namespace velmora::estimate
