#include "velmora/estimate/totals.h"

#include <algorithm>
#include <array>

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
    for (TextBox* box : {&f_.Text4(5), &f_.Text4(3), &f_.Text4(2), &f_.txtPesu(25), &f_.txtPesu(24), &f_.txtPesu(15),
                         &f_.txtPesu(23)}) {
        trap([&] { box->setText("0"); });
    }
}

double Totals::hubCut() {
    const double oneCut = round2(number(f_.Text4(2)) * cutPrices_.FnPrecioCorte(entryKey(f_.cboMatCubo)));
    return data::hasTwinHubs(f_.type()) ? oneCut + oneCut : oneCut;
}

double Totals::rackCut() {
    return std::max(number(f_.Text4(50)), number(f_.Text4(52))) * cutPrices_.FnPrecioCorte(entryKey(f_.cboMatCre));
}

void Totals::writeRackCut() {
    ErrorTrap trap;
    if (f_.rsMatCre->isOpen() && f_.rsMatCre->hasRows()) {
        trap([&] { f_.txtPesu(55).setText(Format(rackCut(), amountMask)); });
    }
}

double Totals::writeHubCut(ErrorTrap& trap) {
    double x = 0;
    if (trap.condition([&] { return number(f_.Text4(5)) > 0; })) {
        trap([&] { x = hubCut(); });
        trap([&] { put(f_.txtPesu(15), x); });
    } else {
        trap([&] { f_.txtPesu(15).setText("0,00"); });
    }
    return x;
}

void Totals::sumRackWeight(ErrorTrap& trap) {
    trap([&] { f_.Text4(53).setText(Format(weights_.rackWeight(), amountMask)); });
    trap([&] {
        f_.txtPesu(57).setText(
            Format(number(f_.txtPesu(55)) + number(f_.Text4(53)) * number(f_.txtPesu(56)), amountMask));
    });
}

void Totals::sumRack(ErrorTrap& trap) {
    trap([&] {
        f_.txtPesu(57).setText(
            Format(number(f_.txtPesu(55)) + number(f_.Text4(53)) * number(f_.txtPesu(56)), amountMask));
    });
    trap([&] { put(f_.txtPesu(7), round2(number(f_.txtPesu(57)))); });
    sumPiece(trap);
}

void Totals::sumMaterial(ErrorTrap& trap) {
    // Differs D-008: a rack's material is its bar, whatever stands in the hidden lines of disc and hub.
    const auto material = [&] {
        return data::isRack(f_.type()) ? number(f_.txtPesu(57)) : number(f_.txtPesu(22)) + number(f_.txtPesu(25));
    };
    trap([&] { put(f_.txtPesu(7), round2(material())); });
    sumPiece(trap);
}

void Totals::sumPiece(ErrorTrap& trap) {
    trap([&] {
        put(f_.txtPesu(10), round2(number(f_.txtPesu(7)) + number(f_.txtPesu(14)) + number(f_.txtPesu(8)) +
                                   number(f_.txtPesu(9)) + number(f_.txtPesu(5))));
    });
    sumLot(trap);
}

void Totals::sumLot(ErrorTrap& trap) {
    trap([&] { put(f_.txtPesu(12), round2(number(f_.txtPesu(10)) * number(f_.txtPesu(11)))); });
}

void Totals::sumPieceWithSawSpread(ErrorTrap& trap) {
    // Kept K-008: leaving "Fijo Sierra" spreads the charge over the units, every other path adds it whole; which
    // price stands depends on the field edited last, and quotations were given on it.
    double f = 0;
    if (trap.condition([&] { return number(f_.txtPesu(10)) > 0 && number(f_.txtPesu(14)) != 0; })) {
        trap([&] { f = round2(runtime::divide(number(f_.txtPesu(14)), number(f_.txtPesu(11)))); });
    }
    trap([&] {
        put(f_.txtPesu(10),
            round2(number(f_.txtPesu(7)) + f + number(f_.txtPesu(8)) + number(f_.txtPesu(9)) + number(f_.txtPesu(5))));
    });
}

void Totals::sumDisc(ErrorTrap& trap) {
    double cut = 0;
    if (trap.condition([&] { return number(f_.txtPesu(16)) <= 0; })) {
        trap([&] { f_.txtPesu(16).setText("0,00"); });
    } else {
        trap([&] { cut = number(f_.txtPesu(16)); });
    }
    trap([&] { put(f_.txtPesu(22), round2(round2(number(f_.Text4(4)) * number(f_.txtPesu(21))) + cut)); });
    msRecalcularImportes(5);
}

void Totals::sumHub(ErrorTrap& trap) {
    double x = 0;
    if (!data::hubIsVoid(f_.type())) {
        x = writeHubCut(trap);
    }
    trap([&] { put(f_.txtPesu(25), round2(round2(number(f_.Text4(5)) * number(f_.txtPesu(24))) + x)); });
    msRecalcularImportes(5);
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
    const double z = numberOrZero(f_.Text1(1));
    const double de = numberOrZero(f_.Text1(15));
    const double ll = numberOrZero(f_.Text1(9));
    const double dc = numberOrZero(f_.Text1(16));
    const double ac = numberOrZero(f_.Text1(10));
    const double eje = numberOrZero(f_.Text1(7));
    const double at = numberOrZero(f_.Text1(17));
    const double rod = numberOrZero(f_.Text1(2));
    const double a = ll * de + dc * ac;
    const double b = ll * rod * z + at * eje;

    const std::string words = "[((" + CStr(de) + " x " + CStr(ll) + ") + (" + CStr(dc) + " x " + CStr(ac) +
                              "))] = " + CStr(a) + " - [(" + CStr(eje) + " x " + CStr(at) + ") + ((" + CStr(rod) +
                              " x " + CStr(ll) + ") x " + CStr(z) + ")] = " + CStr(b);
    f_.txtPesu(17).setToolTip(words);
    f_.lblFormulaPeso.setCaption(words);
    // Chosen C-003: the stock pieces' own weights are not worked out again here: nothing shows or keeps them.
    f_.txtPesu(17).setText(Format(a - b, amountMask));
}

void Totals::clearFormula() {
    f_.txtPesu(17).setToolTip("");
    f_.lblFormulaPeso.setCaption("");
    f_.txtPesu(17).setText("0,00");
}

}  // namespace velmora::estimate
