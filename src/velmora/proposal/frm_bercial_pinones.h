#pragma once
// The main form: one proposal, from first entry to a stored row. Owns the fields, the classes that work on them, and
// the wiring of events.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/dimension_constants.h"
#include "velmora/estimate/disc_and_hub_costing.h"
#include "velmora/estimate/double_sprockets.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/gears.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/estimate/new_proposal.h"
#include "velmora/estimate/presentation.h"
#include "velmora/estimate/rack.h"
#include "velmora/estimate/sprocket_geometry.h"
#include "velmora/estimate/totals.h"
#include "velmora/estimate/weights.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/key_words.h"
#include "velmora/proposal/buttons.h"
#include "velmora/proposal/customer_search.h"
#include "velmora/proposal/deleting.h"
#include "velmora/proposal/draft.h"
#include "velmora/proposal/duplicating.h"
#include "velmora/proposal/empty_form.h"
#include "velmora/proposal/form_controls.h"
#include "velmora/proposal/form_status.h"
#include "velmora/proposal/gear_step.h"
#include "velmora/proposal/history.h"
#include "velmora/proposal/history_grid.h"
#include "velmora/proposal/labour_step.h"
#include "velmora/proposal/loading.h"
#include "velmora/proposal/price_questions.h"
#include "velmora/proposal/saving.h"
#include "velmora/proposal/side_windows.h"
#include "velmora/proposal/stored_proposal.h"
#include "velmora/proposal/tab_stops.h"

namespace velmora::proposal {

class frmBercialPiñones : public screen::Form, public screen::TellsKeys {
  public:
    /// Constructs and loads the form: lists, cut prices, an empty proposal. Errors: the database's.
    frmBercialPiñones(session::Session& session, platform::Desk& desk);

    /// Disables F5. Never set.
    bool bBloqueoGrabar = false;
    /// The form is read-only: nothing on it writes.
    bool bConsulta = false;

    bool msCargarPresupuesto(std::int32_t nIdDpi, bool bEditable);
    bool msGrabar(bool bSilencio) { return !bConsulta && saving_.msGrabar(bSilencio); }
    void msCancelarBotones() { buttons_.msCancelarBotones(bConsulta); }
    void msLimpiarCampos();
    void msBuscarArticulo() { customers_.msBuscarArticulo(); }
    void msBuscarCliente() { customers_.msBuscarCliente(); }
    void msHistorico(bool bSoloTipo) { history_.msHistorico(bSoloTipo); }

    /// What is on the form and not stored yet; none on a form that only shows a proposal. To be asked between the
    /// user's actions. Errors: none.
    std::optional<std::string> unsavedDraft() { return bConsulta ? std::nullopt : draft_.unsaved(); }
    /// Loads the draft's proposal, if it is a stored one, and puts the draft on the form. Errors: the database's.
    Restored restoreDraft(std::string_view draft);

    std::vector<screen::KeyWords> functionKeys() const override;

    estimate::FieldMap& fields() { return f_; }
    FormControls& buttonsAndGrid() { return controls_; }

  private:
    struct FunctionKey {
        screen::Key key;
        std::string_view words;
        std::function<void(frmBercialPiñones&)> press;
    };
    /// What the function keys do: for Form_KeyDown and for the sheet of keys.
    static const std::vector<FunctionKey>& keyTable();

    void arrange();
    void Form_Load();
    void Form_Activate();
    void Form_KeyDown(screen::KeyDown& key);
    void wireFields();
    void wireLists();
    void wireButtons();
    void save();
    void duplicate();
    void tellDeletionOf(const std::string& number);
    void jumpTo(screen::Control& control);
    void passThroughRim();
    void remove();
    void keepFromWriting();
    std::function<void()> unlessConsultation(std::function<void()> action);

    bool rimDue_ = false;  ///< the toothing was left, and the rim not yet
    session::Session& session_;
    platform::Desk& desk_;
    estimate::FieldMap f_{*this};
    FormControls controls_{*this};
    session::KestraUtil oUtil_;
    sql::Recordset rs_;

    estimate::CutPrices cutPrices_;
    estimate::Weights weights_;
    estimate::DimensionConstants constants_;
    estimate::MaterialLists materials_;
    estimate::Totals totals_;
    estimate::DiscAndHubCosting costing_;
    estimate::DoubleSprockets doubles_;
    estimate::Rack rack_;
    estimate::SprocketGeometry geometry_;
    estimate::Presentation presentation_;
    estimate::Gears gears_;
    estimate::NewProposal newProposal_;
    TabStops tabStops_;
    History history_;
    CustomerSearch customers_;
    StoredProposal stored_;
    Loading loading_;
    Saving saving_;
    Buttons buttons_;
    LabourStep labour_;
    GearStep gearStep_;
    Duplicating duplicating_;
    EmptyForm emptyForm_;
    Deleting deleting_;
    HistoryGrid historyGrid_;
    SideWindows sideWindows_;
    PriceQuestions questions_;
    Draft draft_;
    FormStatus formStatus_;
};

}  // namespace velmora::proposal
