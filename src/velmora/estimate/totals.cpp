#include "velmora/estimate/totals.h"

#include <algorithm>
#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;
using runtime::ErrorTrap;
using runtime::Format;

namespace {

/// What a change of a field of txtPesu makes necessary.
enum class Sums { none, rackWeight, rack, material, piece, lot, sawSpread, disc, hub };

struct SumsByIndex {
    int from;
    int to;
    Sums sums;
};

constexpr std::array sumsByIndex{
    SumsByIndex{50, 52, Sums::rackWeight}, SumsByIndex{53, 57, Sums::rack},     SumsByIndex{5, 6, Sums::material},
    SumsByIndex{7, 9, Sums::piece},        SumsByIndex{10, 11, Sums::lot},      SumsByIndex{14, 14, Sums::sawSpread},
    SumsByIndex{16, 16, Sums::disc},       SumsByIndex{21, 21, Sums::disc},     SumsByIndex{24, 24, Sums::hub},
    SumsByIndex{22, 22, Sums::material},   SumsByIndex{25, 25, Sums::material},
};

Sums sumsFor(int index) {
    const auto* found =
        std::ranges::find_if(sumsByIndex, [&](const SumsByIndex& s) { return s.from <= index && index <= s.to; });
    return found == sumsByIndex.end() ? Sums::none : found->sums;
}

struct Indexes {
    int from;
    int to;
};

template <std::size_t N>
bool among(const std::array<Indexes, N>& ranges, int index) {
    return std::ranges::any_of(ranges, [&](const Indexes& r) { return r.from <= index && index <= r.to; });
}

constexpr std::array numericKeys{Indexes{4, 12}, Indexes{14, 17}, Indexes{21, 22}, Indexes{24, 25}, Indexes{50, 57}};
constexpr std::array maskedOnLeaving{Indexes{4, 5},   Indexes{7, 12},  Indexes{14, 17},
                                     Indexes{21, 22}, Indexes{24, 25}, Indexes{50, 57}};
constexpr int rackAmount = 57;

}  // namespace

void Totals::msRecalcularImportes(int Index) {
    if (f_.bCargandoPropuesta) {
        return;
    }
    ErrorTrap trap;
    // Chosen C-002: a product without hub has no hub's cut to work out either; working it out would write "0,00"
    // where "0" has just been written, and the two changes would chase each other for ever.
    if (data::hubIsVoid(f_.type())) {
        voidHub(trap);
    } else {
        writeHubCut(trap);
    }
    switch (sumsFor(Index)) {
        case Sums::rackWeight:
            sumRackWeight(trap);
            break;
        case Sums::rack:
            sumRack(trap);
            break;
        case Sums::material:
            sumMaterial(trap);
            break;
        case Sums::piece:
            sumPiece(trap);
            break;
        case Sums::lot:
            sumLot(trap);
            break;
        case Sums::sawSpread:
            sumPieceWithSawSpread(trap);
            break;
        case Sums::disc:
            sumDisc(trap);
            break;
        case Sums::hub:
            sumHub(trap);
            break;
        case Sums::none:
            break;
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
    const double oneCut =
        round2(number(f_.Text4(cut::hubDiameter)) * cutPrices_.FnPrecioCorte(entryKey(f_.cboMatCubo)));
    return data::hasTwinHubs(f_.type()) ? oneCut + oneCut : oneCut;
}

double Totals::rackCut() {
    return std::max(number(f_.Text4(cut::barLength)), number(f_.Text4(cut::barThickness))) *
           cutPrices_.FnPrecioCorte(entryKey(f_.cboMatCre));
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

void Totals::sumRackWeight(ErrorTrap& trap) {
    trap([&] { f_.Text4(cut::barWeight).setText(Format(weights_.rackWeight(), amountMask)); });
    trap([&] {
        f_.txtPesu(money::barAmount)
            .setText(Format(number(f_.txtPesu(money::barCut)) +
                                number(f_.Text4(cut::barWeight)) * number(f_.txtPesu(money::barPrice)),
                            amountMask));
    });
}

void Totals::sumRack(ErrorTrap& trap) {
    trap([&] {
        f_.txtPesu(money::barAmount)
            .setText(Format(number(f_.txtPesu(money::barCut)) +
                                number(f_.Text4(cut::barWeight)) * number(f_.txtPesu(money::barPrice)),
                            amountMask));
    });
    trap([&] { put(f_.txtPesu(money::material), round2(number(f_.txtPesu(money::barAmount)))); });
    sumPiece(trap);
}

void Totals::sumMaterial(ErrorTrap& trap) {
    // Differs D-008: a rack's material is its bar, whatever stands in the hidden lines of disc and hub.
    const auto material = [&] {
        return data::isRack(f_.type()) ? number(f_.txtPesu(money::barAmount))
                                       : number(f_.txtPesu(money::discAmount)) + number(f_.txtPesu(money::hubAmount));
    };
    trap([&] { put(f_.txtPesu(money::material), round2(material())); });
    sumPiece(trap);
}

void Totals::sumPiece(ErrorTrap& trap) {
    trap([&] {
        put(f_.txtPesu(money::piece),
            round2(number(f_.txtPesu(money::material)) + number(f_.txtPesu(money::sawCharge)) +
                   number(f_.txtPesu(money::labour)) + number(f_.txtPesu(money::subcontracted)) +
                   number(f_.txtPesu(money::sundries))));
    });
    sumLot(trap);
}

void Totals::sumLot(ErrorTrap& trap) {
    trap([&] {
        put(f_.txtPesu(money::lot), round2(number(f_.txtPesu(money::piece)) * number(f_.txtPesu(money::pieces))));
    });
}

void Totals::sumPieceWithSawSpread(ErrorTrap& trap) {
    // Kept K-008: leaving "Fijo Sierra" spreads the charge over the units, every other path adds it whole, so the price
    // depends on the field edited last. Required as it is; it determines stored prices.
    double f = 0;
    if (trap.condition(
            [&] { return number(f_.txtPesu(money::piece)) > 0 && number(f_.txtPesu(money::sawCharge)) != 0; })) {
        trap([&] {
            f = round2(runtime::divide(number(f_.txtPesu(money::sawCharge)), number(f_.txtPesu(money::pieces))));
        });
    }
    trap([&] {
        put(f_.txtPesu(money::piece),
            round2(number(f_.txtPesu(money::material)) + f + number(f_.txtPesu(money::labour)) +
                   number(f_.txtPesu(money::subcontracted)) + number(f_.txtPesu(money::sundries))));
    });
}

void Totals::sumDisc(ErrorTrap& trap) {
    double cut = 0;
    if (trap.condition([&] { return number(f_.txtPesu(money::discCut)) <= 0; })) {
        trap([&] { f_.txtPesu(money::discCut).setText("0,00"); });
    } else {
        trap([&] { cut = number(f_.txtPesu(money::discCut)); });
    }
    trap([&] {
        put(f_.txtPesu(money::discAmount),
            round2(round2(number(f_.Text4(cut::discWeight)) * number(f_.txtPesu(money::discPrice))) + cut));
    });
    msRecalcularImportes(money::sundries);
}

void Totals::sumHub(ErrorTrap& trap) {
    double x = 0;
    if (!data::hubIsVoid(f_.type())) {
        x = writeHubCut(trap);
    }
    trap([&] {
        put(f_.txtPesu(money::hubAmount),
            round2(round2(number(f_.Text4(cut::hubWeight)) * number(f_.txtPesu(money::hubPrice))) + x));
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
    if (!runtime::IsNumeric(box.text())) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box, "###,###,##0.00");
    if (Index == rackAmount) {
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
    const double a = ll * de + dc * ac;
    const double b = ll * rod * z + at * eje;

    const std::string words = "[((" + CStr(de) + " x " + CStr(ll) + ") + (" + CStr(dc) + " x " + CStr(ac) +
                              "))] = " + CStr(a) + " - [(" + CStr(eje) + " x " + CStr(at) + ") + ((" + CStr(rod) +
                              " x " + CStr(ll) + ") x " + CStr(z) + ")] = " + CStr(b);
    f_.txtPesu(money::approximateWeight).setToolTip(words);
    f_.lblFormulaPeso.setCaption(words);
    // Chosen C-003: the stock pieces' own weights are not worked out again here: nothing shows or keeps them.
    f_.txtPesu(money::approximateWeight).setText(Format(a - b, amountMask));
}

void Totals::clearFormula() {
    f_.txtPesu(money::approximateWeight).setToolTip("");
    f_.lblFormulaPeso.setCaption("");
    f_.txtPesu(money::approximateWeight).setText("0,00");
}

}  // namespace velmora::estimate
