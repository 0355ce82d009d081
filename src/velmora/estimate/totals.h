#pragma once
// Calculates the price of a piece and of the lot from the amounts, and the approximate weight. Euros, two decimals.

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/price.h"
#include "velmora/estimate/weights.h"

namespace velmora::estimate {

class Totals {
  public:
    Totals(FieldMap& fields, CutPrices& cutPrices, const Weights& weights, session::KestraUtil& util)
        : f_(fields), cutPrices_(cutPrices), weights_(weights), oUtil_(util) {}

    /// Recalculates the sums that depend on the field of that index of txtPesu (cut::barLength to cut::barWeight: of
    /// Text4). Does nothing during a load. Raises no error: a sum that cannot be calculated leaves its field as it was.
    void msRecalcularImportes(int Index);

    /// Writes the approximate weight of the finished piece, and its formula into the label beside it. Raises no error.
    void msMostrarFormula();
    /// Writes "0,00" as the approximate weight and clears its formula.
    void clearFormula();

    void txtPesu_Change(int Index);
    void txtPesu_KeyPress(int Index, screen::KeyPress& key);
    /// When the focus leaves a field of txtPesu: 0 for a text that is no number, and the mask.
    void txtPesu_LostFocus(int Index);

    /// The saw's cut of the hub's material (€), two cuts for a piece with two equal hubs. Error 13 when the hub's
    /// diameter is no number.
    double hubCut();
    /// The saw's cut of a rack's bar (€, not rounded). Error 13 when its length or thickness is no number.
    double rackCut();
    /// Writes rackCut() into its field; does nothing without a material. Raises no error.
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
