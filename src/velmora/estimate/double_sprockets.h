#pragma once
// Double, two-chain and triple products, whose measures are read from the table PDM by chain and teeth, and the
// variable product with two different hubs.

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

/// The values of a chain (its position in cboDobles) for a number of teeth, the text of its field: the rows of PDM, at
/// most one of which is used. Errors: the database's.
sql::Recordset chainValues(session::Session& session, int chain, const std::string& teeth);

/// The column of PDM from which a look-up fills the field of Text1 as it is; nullptr for a field that is calculated or
/// not looked up.
const char* chainColumn(int field);

class DoubleSprockets {
  public:
    DoubleSprockets(FieldMap& fields, session::Session& session, screen::Screen& screen)
        : f_(fields), session_(session), screen_(screen) {}

    /// The handler of leaving a field of Text1, for the types with a chain list. False when the look-up found no row:
    /// the caller then changes nothing else.
    bool Text1_LostFocus(int Index);

    /// Writes the measures to the sketch of the variable product whose second hub is known, and computes its total
    /// width. Does nothing for other types or while a proposal is being loaded.
    void msCalcularDobleVariable();

    /// Copies the fields to the figures of the variable sketch, txtDCV; changes no measure. Does nothing for types
    /// other than 10 and 11.
    void repeatOnVariableSketch();
    /// The same after a change of that field of Text1, if the sketch shows it.
    void variableMeasureChanged(int field);

    /// Copies rim, hub and total width to the sketches of double and triple, txtPDM and txtTriple.
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
