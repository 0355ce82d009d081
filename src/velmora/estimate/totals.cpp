#include "velmora/estimate/totals.h"

#include <algorithm>
#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;
using runtime::ErrorTrap;
using runtime::Format;

namespace {

template <std::size_t N>
bool among(const std::array<screen::IndexRange, N>& ranges, int index) {
    return std::ranges::any_of(ranges, [&](const auto& r) { return r.from <= index && index <= r.to; });
}

constexpr std::array numericKeys{
    screen::IndexRange{money::created, money::lot}, screen::IndexRange{money::sawCharge, money::approximateWeight},
    screen::IndexRange{money::discPrice, money::discAmount}, screen::IndexRange{money::hubPrice, money::hubAmount},
    screen::IndexRange{money::firstOfBar, money::barAmount}};
constexpr std::array maskedOnLeaving{screen::IndexRange{money::created, money::sundries},
                                     screen::IndexRange{money::material, money::lot},
                                     screen::IndexRange{money::sawCharge, money::approximateWeight},
                                     screen::IndexRange{money::discPrice, money::discAmount},
                                     screen::IndexRange{money::hubPrice, money::hubAmount},
                                     screen::IndexRange{money::firstOfBar, money::barAmount}};

}  // namespace

/// The recalculation after a change of a field of txtPesu, or of a bar's field of Text4; nullptr when none is needed.
Totals::Sums Totals::sumsAfter(int index) {
    struct Row {
        int from;
        int to;
        Sums sums;
    };
    static constexpr std::array rows{
        Row{cut::barLength, cut::barThickness, &Totals::sumRackWeight},
        Row{cut::barWeight, money::barAmount, &Totals::sumRack},
        Row{money::sundries, money::workOrder, &Totals::sumMaterial},
        Row{money::material, money::subcontracted, &Totals::sumPiece},
        Row{money::piece, money::pieces, &Totals::sumLot},
        Row{money::sawCharge, money::sawCharge, &Totals::sumPieceWithSawSpread},
        Row{money::discCut, money::discCut, &Totals::sumDisc},
        Row{money::discPrice, money::discPrice, &Totals::sumDisc},
        Row{money::discAmount, money::discAmount, &Totals::sumMaterial},
        Row{money::hubPrice, money::hubPrice, &Totals::sumHub},
        Row{money::hubAmount, money::hubAmount, &Totals::sumMaterial},
    };
    const auto* found = std::ranges::find_if(rows, [&](const Row& r) { return r.from <= index && index <= r.to; });
    return found == rows.end() ? nullptr : found->sums;
}

void Totals::msRecalcularImportes(int Index) {
    if (f_.bCargandoPropuesta) {
        return;
    }
    ErrorTrap trap;
    // Chosen C-002: for a product without hub the hub's cut is not calculated either: it would write "0,00" over the
    // "0" just written, and the change events of the two would call each other endlessly.
    if (f_.product().hubVoid) {
        voidHub(trap);
    } else {
        writeHubCut(trap);
    }
    if (const Sums sums = sumsAfter(Index)) {
        (this->*sums)(trap);
    }
}

void Totals::voidHub(ErrorTrap& trap) {
    for (TextBox* box : {&f_.Text4(cut::hubWeight), &f_.Text4(cut::hubLength), &f_.Text4(cut::hubDiameter),
                         &f_.txtPesu(money::hubAmount), &f_.txtPesu(money::hubPrice), &f_.txtPesu(money::hubCut),
                         &f_.txtPesu(money::hubCost)}) {
        trap([&] { box->setText("0"); });
    }
}

double Totals::hubCut() {
    return hubsSawCut(number(f_.Text4(cut::hubDiameter)), cutPrices_.FnPrecioCorte(entryKey(f_.cboMatCubo)),
                      f_.product().hubs == data::Hubs::twoAlike ? 2 : 1);
}

double Totals::rackCut() {
    return barSawCut(number(f_.Text4(cut::barLength)), number(f_.Text4(cut::barThickness)),
                     cutPrices_.FnPrecioCorte(entryKey(f_.cboMatCre)));
}

void Totals::writeRackCut() {
    ErrorTrap trap;
    if (f_.rsMatCre->isOpen() && f_.rsMatCre->hasRows()) {
        trap([&] { f_.txtPesu(money::barCut).setText(Format(rackCut(), amountMask)); });
    }
}

double Totals::writeHubCut(ErrorTrap& trap) {
    double x = 0;
    if (trap.condition([&] { return number(f_.Text4(cut::hubWeight)) > 0; })) {
        trap([&] { x = hubCut(); });
        trap([&] { put(f_.txtPesu(money::hubCut), x); });
    } else {
        trap([&] { f_.txtPesu(money::hubCut).setText("0,00"); });
    }
    return x;
}

void Totals::writeBarAmount(ErrorTrap& trap) {
    trap([&] {
        f_.txtPesu(money::barAmount)
            .setText(Format(barLine({.weight = number(f_.Text4(cut::barWeight)),
                                     .price = amount(money::barPrice),
                                     .cut = amount(money::barCut)}),
                            amountMask));
    });
}

void Totals::sumRackWeight(ErrorTrap& trap) {
    trap([&] { f_.Text4(cut::barWeight).setText(Format(weights_.rackWeight(), amountMask)); });
    writeBarAmount(trap);
}

void Totals::sumRack(ErrorTrap& trap) {
    writeBarAmount(trap);
    trap([&] { put(f_.txtPesu(money::material), cents(amount(money::barAmount))); });
    sumPiece(trap);
}

void Totals::sumMaterial(ErrorTrap& trap) {
    // Differs D-008: a rack's material is its bar, whatever stands in the hidden lines of disc and hub.
    trap([&] {
        put(f_.txtPesu(money::material), f_.product().shape == data::ProductShape::rack
                                             ? cents(amount(money::barAmount))
                                             : materialOf(amount(money::discAmount), amount(money::hubAmount)));
    });
    sumPiece(trap);
}

PieceParts Totals::partsWith(double sawCharge) const {
    return {.material = amount(money::material),
            .sawCharge = sawCharge,
            .labour = amount(money::labour),
            .subcontracted = amount(money::subcontracted),
            .sundries = amount(money::sundries)};
}

void Totals::sumPiece(ErrorTrap& trap) {
    trap([&] { put(f_.txtPesu(money::piece), piecePrice(partsWith(amount(money::sawCharge)))); });
    sumLot(trap);
}

void Totals::sumLot(ErrorTrap& trap) {
    trap([&] { put(f_.txtPesu(money::lot), lotPrice(amount(money::piece), amount(money::pieces))); });
}

void Totals::sumPieceWithSawSpread(ErrorTrap& trap) {
    // Kept K-008: leaving "Fijo Sierra" spreads the charge over the units, every other path adds it whole, so the price
    // depends on the field edited last. Required as it is; it determines stored prices.
    double share = 0;
    if (trap.condition([&] { return amount(money::piece) > 0 && amount(money::sawCharge) != 0; })) {
        trap([&] { share = spreadSawCharge(amount(money::sawCharge), amount(money::pieces)); });
    }
    trap([&] { put(f_.txtPesu(money::piece), piecePrice(partsWith(share))); });
}

void Totals::sumDisc(ErrorTrap& trap) {
    double cut = 0;
    if (trap.condition([&] { return amount(money::discCut) <= 0; })) {
        trap([&] { f_.txtPesu(money::discCut).setText("0,00"); });
    } else {
        trap([&] { cut = amount(money::discCut); });
    }
    trap([&] {
        put(f_.txtPesu(money::discAmount),
            lineRoundedTwice(
                {.weight = number(f_.Text4(cut::discWeight)), .price = amount(money::discPrice), .cut = cut}));
    });
    msRecalcularImportes(money::sundries);
}

void Totals::sumHub(ErrorTrap& trap) {
    double cut = 0;
    if (!f_.product().hubVoid) {
        cut = writeHubCut(trap);
    }
    trap([&] {
        put(f_.txtPesu(money::hubAmount),
            lineRoundedTwice(
                {.weight = number(f_.Text4(cut::hubWeight)), .price = amount(money::hubPrice), .cut = cut}));
    });
    msRecalcularImportes(money::sundries);
}

void Totals::txtPesu_Change(int Index) {
    f_.noteChange(f_.txtPesu(Index));
    msRecalcularImportes(Index);
}

void Totals::txtPesu_KeyPress(int Index, screen::KeyPress& key) {
    if (among(numericKeys, Index)) {
        oUtil_.TeclaCampo(f_.txtPesu(Index), key, false);
    }
}

void Totals::txtPesu_LostFocus(int Index) {
    const TypedFields::ProgramWrites masks(f_.typed);
    TextBox& box = f_.txtPesu(Index);
    if (!among(maskedOnLeaving, Index)) {
        oUtil_.SalirCampo(box);
        return;
    }
    if (!box.holdsNumber()) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box, "###,###,##0.00");
    if (Index == money::barAmount) {
        ErrorTrap trap;
        trap([&] { f_.txtObservaciones.setFocus(); });
    }
}

void Totals::msMostrarFormula() {
    const double z = numberOrZero(f_.Text1(measure::teeth));
    const double de = numberOrZero(f_.Text1(measure::exterior));
    const double ll = numberOrZero(f_.Text1(measure::rim));
    const double dc = numberOrZero(f_.Text1(measure::hubDiameter));
    const double ac = numberOrZero(f_.Text1(measure::hubWidth));
    const double eje = numberOrZero(f_.Text1(measure::bore));
    const double at = numberOrZero(f_.Text1(measure::totalWidth));
    const double rod = numberOrZero(f_.Text1(measure::roller));
    const auto [a, b] = roughWeight({.teeth = z,
                                     .exterior = de,
                                     .rim = ll,
                                     .hubDiameter = dc,
                                     .hubWidth = ac,
                                     .bore = eje,
                                     .totalWidth = at,
                                     .roller = rod});

    const std::string words = "[((" + CStr(de) + " x " + CStr(ll) + ") + (" + CStr(dc) + " x " + CStr(ac) +
                              "))] = " + CStr(a) + " - [(" + CStr(eje) + " x " + CStr(at) + ") + ((" + CStr(rod) +
                              " x " + CStr(ll) + ") x " + CStr(z) + ")] = " + CStr(b);
    f_.txtPesu(money::approximateWeight).setToolTip(words);
    f_.lblFormulaPeso.setCaption(words);
    // Chosen C-003: the weights of the stock pieces are not calculated here: they would be neither shown nor stored.
    f_.txtPesu(money::approximateWeight).setText(Format(a - b, amountMask));
}

void Totals::clearFormula() {
    f_.txtPesu(money::approximateWeight).setToolTip("");
    f_.lblFormulaPeso.setCaption("");
    f_.txtPesu(money::approximateWeight).setText("0,00");
}

}  // namespace velmora::estimate
