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

    /// Cut sizes of the disc. Nothing while a save runs. Error 13 when a measure is no number.
    void msCalcularDisco();
    /// Cut sizes, prices and amount of the hub, or the one-piece case. Error 13 likewise.
    void msCalcularCubo();
    /// Commercial thickness of the disc from the rim. No error leaves it.
    void msCalcularGrueso();
    /// The cut cost of the disc. No error leaves it. Nothing calls it at present.
    void msCorteDisco();
    /// Captions that tell a one-piece round: blue, hidden above the one-piece limit and without an exterior.
    void msMostrarProcesoCubo();

    void rsMatDisco_MoveComplete();
    void rsMatCubo_MoveComplete();

    void Text4_Change(int Index);
    /// The second event of Text4, with other groups of indexes.
    void Text4_DblClick(int Index);
    void Text4_KeyPress(int Index, screen::KeyPress& key) { oUtil_.TeclaCampo(f_.Text4(Index), key, false); }
    /// Zero for what is no number, and the mask.
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
