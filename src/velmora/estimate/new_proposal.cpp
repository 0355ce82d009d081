#include "velmora/estimate/new_proposal.h"

#include <array>

#include "velmora/estimate/field_names.h"

namespace velmora::estimate {

namespace {

constexpr const char* emptyPrice = "0,00";  ///< as the fields of an empty proposal are written

/// A part that is cut from a material of its own, with the fields of its line.
struct Part {
    sql::ListenedRecordset FieldMap::*material;
    int weight;  ///< Text4
    int cost;    ///< txtPesu
    int sale;    ///< txtPesu
    bool (*belongsTo)(const data::ProductType& type);
};

constexpr bool hasDisc(const data::ProductType& type) {
    return type.hubs != data::Hubs::noWheel;
}

constexpr bool hasHub(const data::ProductType& type) {
    return type.hasHub();
}

constexpr bool hasBar(const data::ProductType& type) {
    return type.shape == data::ProductShape::rack;
}

constexpr std::array partsToReset{
    Part{.material = &FieldMap::rsMatDisco,
         .weight = cut::discWeight,
         .cost = money::discCost,
         .sale = money::discPrice,
         .belongsTo = hasDisc},
    Part{.material = &FieldMap::rsMatCubo,
         .weight = cut::hubWeight,
         .cost = money::hubCost,
         .sale = money::hubPrice,
         .belongsTo = hasHub},
    Part{.material = &FieldMap::rsMatCre,
         .weight = cut::barWeight,
         .cost = money::barCost,
         .sale = money::barPrice,
         .belongsTo = hasBar},
};

/// Suppresses the totals during its lifetime if `wanted`; the destructor restores the state before.
class TotalsOff {
  public:
    TotalsOff(FieldMap& fields, bool wanted) : off_(fields.bCargandoPropuesta), before_(off_) {
        off_ = before_ || wanted;
    }
    ~TotalsOff() { off_ = before_; }
    TotalsOff(const TotalsOff&) = delete;
    TotalsOff& operator=(const TotalsOff&) = delete;

  private:
    bool& off_;
    bool before_;
};

/// The row chosen for a part; nullptr while its list is empty.
const sql::Recordset* materialOf(const FieldMap& f, const Part& part) {
    const sql::Recordset& material = *(f.*part.material);
    return material.isOpen() && material.hasRows() ? &material : nullptr;
}

/// Writes `to` into a field that holds `from` and was not typed by the user.
void replace(const FieldMap& f, TextBox& box, const std::string& from, const std::string& to) {
    if (box.text() == from && !f.typed.contain(box)) {
        box.setText(to);
    }
}

}  // namespace

void NewProposal::begin() {
    f_.typed.forget();
    totals_.clearFormula();
    showPrices();
}

void NewProposal::typeChosen() {
    if (!f_.bCargandoPropuesta && f_.proposal.isNew()) {
        withdrawPrices();
        showPrices();
    }
}

// Differs D-011: the material that a list shows gets its price. For most types its row is not moved to again, so that
// the material would be priced at 0,00.
void NewProposal::showPrices() {
    for (const Part& part : partsToReset) {
        const sql::Recordset* material = materialOf(f_, part);
        if (material != nullptr && part.belongsTo(f_.product())) {
            // Without a weight the prices do not change the totals, which keep their text.
            const TotalsOff off(f_, !weighs(part.weight));
            replace(f_, f_.txtPesu(part.cost), emptyPrice, (*material)["art_pco"].toText());
            replace(f_, f_.txtPesu(part.sale), emptyPrice, (*material)["art_pve"].toText());
        }
    }
}

void NewProposal::withdrawPrices() {
    for (const Part& part : partsToReset) {
        const sql::Recordset* material = materialOf(f_, part);
        if (material != nullptr && !part.belongsTo(f_.product()) && !weighs(part.weight)) {
            const TotalsOff off(f_, true);
            replace(f_, f_.txtPesu(part.cost), (*material)["art_pco"].toText(), emptyPrice);
            replace(f_, f_.txtPesu(part.sale), (*material)["art_pve"].toText(), emptyPrice);
        }
    }
}

bool NewProposal::weighs(int weight) const {
    return numberOrZero(f_.Text4(weight)) != 0;
}

}  // namespace velmora::estimate
