#pragma once
// The lists of materials: disc, hub, rack. An entry's first three characters are the key of its parameter row.

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

class MaterialLists {
  public:
    MaterialLists(FieldMap& fields, session::Session& session, screen::Screen& screen)
        : f_(fields), session_(session), screen_(screen) {}

    /// Discs in cboMatDisco, hubs in cboMatCubo: for a piece above 120 mm.
    void msCargarMaterialesConCubo();
    /// Rounds (the hubs' materials) in both: for a piece up to 120 mm.
    void msCargarMaterialesSinCubo();
    void msCargarMaterialesCre();

    /// Opens the row of the chosen entry with its article, which notifies the recordset's owner. Error 13 with nothing
    /// chosen.
    void cboMatDisco_Click();
    void cboMatCubo_Click();
    void cboMatCre_Click();

  private:
    void load(const char* discStatement);
    void fill(ComboBox& list, const char* statement);
    void choose(ComboBox& list, sql::ListenedRecordset& rows);
    sql::Recordset row(const ComboBox& list) const;

    FieldMap& f_;
    session::Session& session_;
    screen::Screen& screen_;
};

}  // namespace velmora::estimate
