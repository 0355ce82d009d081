#pragma once
// Double, two-chain and triple products, whose measures come ready from the table PDM by chain and teeth, and the
// variable product with two unlike hubs.

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

class DoubleSprockets {
  public:
    DoubleSprockets(FieldMap& fields, session::Session& session, screen::Screen& screen)
        : f_(fields), session_(session), screen_(screen) {}

    /// What leaving a field of Text1 does for the types with a chain list. False when the look-up found no row: the
    /// handler then ends with no other change.
    bool Text1_LostFocus(int Index);

    /// Spreads the measures over the sketch of the variable sprocket and gives its total width. Nothing for other
    /// types, nor while a proposal is being loaded.
    void msCalcularDobleVariable();

  private:
    bool lookUp();
    void spreadDouble(double rim);
    void spreadTriple(double rim);
    void voidHub();
    void hubWidthChanged();
    void gapChanged();
    void hubDiameterChanged();

    FieldMap& f_;
    session::Session& session_;
    screen::Screen& screen_;
    sql::Recordset rsPiñonDoble_;
};

}  // namespace velmora::estimate
