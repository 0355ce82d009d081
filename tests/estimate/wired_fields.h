#pragma once
// The classes of the estimate on a bare form, wired to each other: a field's event reaches the class that answers for
// it, whose writes are the next events. For tests of a class that works through such a chain.

#include <optional>

#include "velmora/data/chains.h"
#include "velmora/estimate/disc_and_hub_costing.h"
#include "velmora/estimate/gears.h"
#include "velmora/estimate/new_proposal.h"
#include "velmora/estimate/presentation.h"
#include "velmora/estimate/sprocket_geometry.h"

#include "fields_alone.h"

namespace velmora::support {

/// The classes, none of them wired yet.
struct EstimateParts {
    EstimateParts(estimate::FieldMap& fields, session::Session& session, screen::Screen& screen)
        : f(fields), owner(session), shown(screen) {}

    estimate::FieldMap& f;
    session::Session& owner;
    screen::Screen& shown;
    session::KestraUtil util{shown, owner.Connection()};
    estimate::CutPrices cutPrices{owner};
    estimate::Weights weights{f};
    estimate::DimensionConstants constants{f, owner};
    estimate::MaterialLists materials{f, owner, shown};
    estimate::Totals totals{f, cutPrices, weights, util};
    estimate::DiscAndHubCosting costing{f, cutPrices, weights, totals, util};
    estimate::DoubleSprockets doubles{f, owner, shown};
    estimate::Rack rack{f, totals, shown};
    estimate::SprocketGeometry geometry{f, {constants, costing, materials, doubles, rack, totals}, shown, util};
    estimate::Presentation presentation{f};
    estimate::Gears gears{f, presentation, materials, owner};
    estimate::NewProposal newProposal{f, totals};
};

/// An empty proposal on show: disc 1, hub 2, rack 8. The hub has 0.6, the total width 0.4 of any pitch diameter.
class WiredFields : public FieldsAlone {
  protected:
    WiredFields() {
        setFactor(1, 0.6);
        setFactor(2, 0.4);
        open();
    }

    /// Lets go of the fields and begins with new ones.
    void openAnew() {
        parts_.reset();
        newFields();
        open();
    }
    /// The same on the materials as a test has changed them.
    void openAnewWithMaterials() {
        answerMaterials(database, materials);
        openAnew();
    }
    EstimateParts& parts() { return *parts_; }

    /// The constant of a rule of Calculos for every pitch diameter.
    void setFactor(int rule, const sql::Value& factor) {
        database.answerAllThatBegin(
            "SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = " + std::to_string(rule) + " and ",
            {"Calculos_Constante"}, {{factor}});
    }

    /// Pitch, chain width, teeth and roller in this order, and out of the last field.
    void enterToothing(std::string_view pitch, std::string_view chainWidth, std::string_view teeth,
                       std::string_view roller) {
        enter(fields().Text1(0), pitch);
        enter(fields().Text1(8), chainWidth);
        enter(fields().Text1(1), teeth);
        enter(fields().Text1(2), roller);
        leave();
    }
    /// 12,7 with this roller and 38 teeth: exterior above 120.
    void enterLargeSprocket() { enterToothing("12,7", "7,75", "38", "7,75"); }
    /// 12,7 with this roller and 17 teeth: exterior below 120.
    void enterSmallSprocket() { enterToothing("12,7", "7,75", "17", "7,75"); }

  private:
    void open() {
        EstimateParts& p = parts_.emplace(fields(), session, screen);
        wireBoxes(p);
        wireLists(p);
        p.cutPrices.msCargarPreciosCorte();
        fields().cboTipoPre.onClick();
        for (const auto& chain : data::chains) {
            fields().cboDobles.addItem(chain);
        }
        fields().cboDobles.setListIndex(0);
        p.materials.msCargarMaterialesConCubo();
        p.materials.msCargarMaterialesCre();
        fields().forEachTextBox([](screen::TextBox& box) { box.setText("0,00"); });
        fields().txtPesu(3).setText("");  // a stored proposal has a number here
        fields().Text1(7).setText("24");
        p.newProposal.begin();
        connection.clear();
    }
    void wireBoxes(EstimateParts& p) {
        using screen::KeyPress;
        using screen::TextBox;
        estimate::FieldMap& f = fields();
        f.Text1.on(&TextBox::onChange, {[&p](int i) { p.geometry.Text1_Change(i); }});
        f.Text1.on(&TextBox::onLostFocus, {[&p](int i) { p.geometry.Text1_LostFocus(i); }});
        f.Text1.on(&TextBox::onKeyPress, {[&p](int i, KeyPress& key) { p.geometry.Text1_KeyPress(i, key); }});
        f.Text3.on(&TextBox::onChange, {[&p](int i) { p.geometry.Text3_Change(i); }});
        f.Text4.on(&TextBox::onChange, {[&p](int i) { p.costing.Text4_Change(i); }});
        f.Text4.on(&TextBox::onDblClick, {[&p](int i) { p.costing.Text4_DblClick(i); }});
        f.Text4.on(&TextBox::onLostFocus, {[&p](int i) { p.costing.Text4_LostFocus(i); }});
        f.Text4.on(&TextBox::onKeyPress, {[&p](int i, KeyPress& key) { p.costing.Text4_KeyPress(i, key); }});
        f.txtPesu.on(&TextBox::onChange, {[&p](int i) { p.totals.txtPesu_Change(i); }});
        f.txtPesu.on(&TextBox::onLostFocus, {[&p](int i) { p.totals.txtPesu_LostFocus(i); }});
        f.txtPesu.on(&TextBox::onKeyPress, {[&p](int i, KeyPress& key) { p.totals.txtPesu_KeyPress(i, key); }});
    }
    void wireLists(EstimateParts& p) {
        estimate::FieldMap& f = fields();
        f.cboTipoPre.onClick = [&p] {
            p.presentation.cboTipoPre_Click();
            p.newProposal.typeChosen();
        };
        f.cboMatDisco.onClick = [&p] { p.materials.cboMatDisco_Click(); };
        f.cboMatDisco.onChosen = [&p] { p.materials.cboMatDisco_Click(); };
        f.cboMatCubo.onClick = [&p] { p.materials.cboMatCubo_Click(); };
        f.cboMatCubo.onChosen = [&p] { p.materials.cboMatCubo_Click(); };
        f.cboMatCre.onClick = [&p] { p.materials.cboMatCre_Click(); };
        f.rsMatDisco.onMoveComplete = [&p] { p.costing.rsMatDisco_MoveComplete(); };
        f.rsMatCubo.onMoveComplete = [&p] { p.costing.rsMatCubo_MoveComplete(); };
        f.rsMatCre.onMoveComplete = [&p] { p.rack.rsMatCre_MoveComplete(); };
    }

    std::optional<EstimateParts> parts_;
};

}  // namespace velmora::support
