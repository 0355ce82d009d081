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

    /// Spreads the measures over the sketch of the variable product whose second hub is known, and gives its total
    /// width. Nothing for other types, nor while a proposal is being loaded.
    void msCalcularDobleVariable();

    /// The figures of the variable sketch, txtDCV, from the fields beside them; writes no measure. Nothing for types
    /// other than 10 and 11.
    void repeatOnVariableSketch();
    /// The same after a change of that field of Text1, if the sketch repeats it.
    void variableMeasureChanged(int field);

    /// Rim, hub and total width on the sketches of double and triple, txtPDM and txtTriple, from the fields beside
    /// them.
    void repeatOnMultipleSketches();

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
