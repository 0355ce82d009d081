#pragma once
// How a piece is cut from stock, one round up to an exterior diameter of 120 mm, a disc and a hub above it: cut
// sizes (mm), weights (kg), cut costs and amounts (€).

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/price.h"
#include "velmora/estimate/totals.h"
#include "velmora/estimate/weights.h"

namespace velmora::estimate {

class DiscAndHubCosting {
  public:
    DiscAndHubCosting(FieldMap& fields, CutPrices& cutPrices, const Weights& weights, Totals& totals,
                      session::KestraUtil& util)
        : f_(fields), cutPrices_(cutPrices), weights_(weights), totals_(totals), oUtil_(util) {
        msMostrarProcesoCubo();
    }

    /// Calculates the cut sizes of the disc. Does nothing during a save. Error 13 when a measure is no number.
    void msCalcularDisco();
    /// Calculates sizes, prices and amount of the hub, or zeros for a one-piece round. Error 13 likewise.
    void msCalcularCubo();
    /// Calculates the commercial thickness of the disc from the rim. Raises no error.
    void msCalcularGrueso();
    /// Calculates the cut cost of the disc. Raises no error. Not called at present.
    void msCorteDisco();
    /// Shows the captions of a one-piece round, blue; hides them above the one-piece limit and without an exterior.
    void msMostrarProcesoCubo();

    void rsMatDisco_MoveComplete();
    void rsMatCubo_MoveComplete();

    void Text4_Change(int Index);
    /// Recalculates as Text4_Change does, but with other groups of indexes.
    void Text4_DblClick(int Index);
    void Text4_KeyPress(int Index, screen::KeyPress& key) { oUtil_.TeclaCampo(f_.Text4(Index), key, false); }
    /// When the focus leaves a field: 0 for a text that is no number, the mask, and the amounts of a rack's bar.
    void Text4_LostFocus(int Index);

  private:
    double discCut();
    StockLine discLine(double cut) const;
    StockLine hubLine(double cut) const;
    void onePiece();
    void showProcess(Label& caption) const;
    void discAndHub(const TextBox& hubLength);
    void priceHub();
    void discChanged();
    void hubChanged();
    void rackChanged(int Index);
    void writeRackWeight();
    double thicknessByText() const;
    void showInnerDiameter(const sql::Recordset& material, TextBox& box, Label& label);

    FieldMap& f_;
    CutPrices& cutPrices_;
    const Weights& weights_;
    Totals& totals_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::estimate
