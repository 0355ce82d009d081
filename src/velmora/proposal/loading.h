#pragma once
// One row of DPI put on the main form as it was saved.

#include "velmora/estimate/double_sprockets.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/estimate/presentation.h"
#include "velmora/estimate/sprocket_geometry.h"
#include "velmora/estimate/stored_fields.h"
#include "velmora/estimate/totals.h"
#include "velmora/proposal/form_controls.h"
#include "velmora/proposal/history.h"
#include "velmora/proposal/stored_proposal.h"

namespace velmora::proposal {

class FormMemory;

class Loading {
  public:
    struct Collaborators {
        estimate::MaterialLists& materials;
        estimate::Presentation& presentation;
        estimate::SprocketGeometry& geometry;
        estimate::DoubleSprockets& doubles;
        estimate::Totals& totals;
        History& history;
        StoredProposal& stored;
    };

    Loading(estimate::FieldMap& fields, FormControls& controls, Collaborators peers, session::Session& session,
            screen::Screen& screen)
        : f_(fields), controls_(controls), peers_(peers), session_(session), screen_(screen) {}

    /// Puts the proposal on the form, open for editing or read-only. True when it ran to its end, also for a number
    /// that no row has; false when a material is not in its list (a message told so), or a multiple product has no
    /// gap stored. Errors: 94 for a null where a value belongs; the database's. False or an error leave the form as
    /// it was before.
    bool msCargarPresupuesto(std::int32_t nIdDpi, bool bEditable);

  private:
    void giveUp(const FormMemory& before);
    bool putOnForm(const sql::Recordset& row, bool bEditable);
    void put(const sql::Recordset& row, estimate::TextField field);
    void putOrZero(const sql::Recordset& row, estimate::TextField field);
    void putMasked(const sql::Recordset& row, estimate::TextField field, const char* mask);
    void putPlainFields(const sql::Recordset& row);
    void openForEditing();
    void closeForEditing();
    bool chooseMaterials(const sql::Recordset& row);
    bool choose(const sql::Recordset& row, estimate::ComboBox estimate::FieldMap::*materials) const;
    bool refuse(const char* message);
    void putState(const sql::Recordset& row);
    void putMeasures(const sql::Recordset& row);
    void putCuts(const sql::Recordset& row);
    void putAmounts(const sql::Recordset& row);
    bool putByType(const sql::Recordset& row);
    void putRack(const sql::Recordset& row);
    void setButtons();
    void putAgain(const sql::Recordset& row);
    void letStoredWidthsStand(const sql::Recordset& row);
    void putRackCut(const sql::Recordset& row);
    void showWhatFollows();
    void finish();

    estimate::FieldMap& f_;
    FormControls& controls_;
    Collaborators peers_;
    session::Session& session_;
    screen::Screen& screen_;
    std::string refusal_;  ///< the message when a material is missing from its list; empty otherwise
};

}  // namespace velmora::proposal
