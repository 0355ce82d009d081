#pragma once
// From amounts to the price of a piece and of the lot, and the approximate weight in words. Euros, two decimals.

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/price.h"
#include "velmora/estimate/weights.h"

namespace velmora::estimate {

class Totals {
  public:
    Totals(FieldMap& fields, CutPrices& cutPrices, const Weights& weights, session::KestraUtil& util)
        : f_(fields), cutPrices_(cutPrices), weights_(weights), oUtil_(util) {}

    /// Sums anew after the field of that index of txtPesu has changed (50 to 53: of Text4). Does nothing while a
    /// proposal is being loaded. No error leaves it: a sum that cannot be made leaves its field as it was.
    void msRecalcularImportes(int Index);

    /// The approximate weight of the finished piece, in txtPesu(17) and in words beside it.
    void msMostrarFormula();
    /// No approximate weight: "0,00" and no words.
    void clearFormula();

    void txtPesu_Change(int Index);
    void txtPesu_KeyPress(int Index, screen::KeyPress& key);
    /// What leaving a field of txtPesu does but the customer's look-up: the mask, and zero for what is no number.
    void txtPesu_LostFocus(int Index);

    /// The saw's cut of the hub's material (€), two cuts for a piece with two hubs; from Text4(2). Error 13 when
    /// that is no number.
    double hubCut();
    /// The saw's cut of a rack's bar (€), along the larger of Text4(50) and (52). Error 13 when one is no number.
    double rackCut();
    /// Writes it into txtPesu(55); nothing without a material. No error leaves it.
    void writeRackCut();

  private:
    using Sums = void (Totals::*)(runtime::ErrorTrap&);
    static Sums sumsAfter(int index);

    /// The amount in a field of txtPesu; error 13 when it is no number.
    double amount(int index) const { return number(f_.txtPesu(index)); }
    PieceParts partsWith(double sawCharge) const;
    void voidHub(runtime::ErrorTrap& trap);
    double writeHubCut(runtime::ErrorTrap& trap);
    void sumMaterial(runtime::ErrorTrap& trap);
    void sumPiece(runtime::ErrorTrap& trap);
    void sumLot(runtime::ErrorTrap& trap);
    void sumPieceWithSawSpread(runtime::ErrorTrap& trap);
    void sumDisc(runtime::ErrorTrap& trap);
    void sumHub(runtime::ErrorTrap& trap);
    void writeBarAmount(runtime::ErrorTrap& trap);
    void sumRackWeight(runtime::ErrorTrap& trap);
    void sumRack(runtime::ErrorTrap& trap);

    FieldMap& f_;
    CutPrices& cutPrices_;
    const Weights& weights_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::estimate
