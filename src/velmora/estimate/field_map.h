#pragma once
// The field map of the main form: every control that the estimate reads or writes, and the state beside them. A
// field's text is the value; the rules parse it and write text back.

#include <functional>

#include "velmora/data/product_types.h"
#include "velmora/estimate/drawings.h"
#include "velmora/estimate/shown_proposal.h"
#include "velmora/estimate/typed_fields.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/sketch.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::estimate {

using screen::Button;
using screen::CheckBox;
using screen::ComboBox;
using screen::ControlArray;
using screen::Frame;
using screen::Label;
using screen::TextBox;

struct FieldMap {
    explicit FieldMap(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    // Entry fields. Text1: toothing and measures, 19 to 25 the rack's. Text3: captions on the sketch. Text4: cut
    // sizes and weights, 50 to 53 the rack's. txtPesu: customer, amounts, prices.
    ControlArray<TextBox> Text1{form, "Text1", {{0, 25}}};
    ControlArray<TextBox> Text3{form, "Text3", {{0, 6}}};
    ControlArray<TextBox> Text4{form, "Text4", {{0, 7}, {50, 53}}};
    ControlArray<TextBox> txtPesu{form, "txtPesu", {{0, 17}, {20, 25}, {50, 57}}};
    ControlArray<TextBox> txtPDM{form, "txtPDM", {{0, 8}}};
    ControlArray<TextBox> txtTriple{form, "txtTriple", {{0, 10}}};
    ControlArray<TextBox> txtDCV{form, "txtDCV", {{0, 6}}};
    ControlArray<TextBox> txtCre{form, "txtCre", {{0, 5}}};
    TextBox txtModulo{form, "txtModulo"};
    TextBox txtExtra{form, "txtExtra"};
    TextBox txtObservaciones{form, "txtObservaciones"};
    TextBox txtCPro{form, "txtCPro"};

    ComboBox cboTipoPre{form, "cboTipoPre"};
    ComboBox cboDobles{form, "cboDobles"};
    ComboBox cboHerramienta{form, "cboHerramienta"};
    ComboBox cboMatDisco{form, "cboMatDisco"};
    ComboBox cboMatCubo{form, "cboMatCubo"};
    ComboBox cboMatCre{form, "cboMatCre"};
    ComboBox cboFiltroHistorico{form, "cboFiltroHistorico"};
    CheckBox chkAcopla{form, "chkAcopla"};
    CheckBox chkFormulas{form, "chkFormulas"};

    // Captions that change. Label1: 4 rim, 10 b1, 11 roller, 13 hub width, 16 chain width or module, 17 total width,
    // 20 hub diameter, 34 gap, 35 second hub's width, 37 second hub's diameter. D: inner diameters of tube stock.
    ControlArray<Label> Label1{form, "Label1", {{4, 4}, {10, 11}, {13, 13}, {16, 17}, {20, 20}, {34, 35}, {37, 37}}};
    ControlArray<Label> Label2{form, "Label2", {{2, 3}}};
    ControlArray<Label> D{form, "D", {{4, 5}}};
    ControlArray<Label> lblTapaCubo{form, "lblTapaCubo", {{0, 1}}};
    ControlArray<Label> lblTapacuboTriple{form, "lblTapacuboTriple", {{0, 1}}};
    Label lblFormulaDM{form, "lblFormulaDM"};
    Label lblFormulaAncho{form, "lblFormulaAncho"};
    Label lblDiscoProceso{form, "lblDiscoProceso"};
    Label lblCuboProceso{form, "lblCuboProceso"};
    Label lblFormulaPeso{form, "lblFormulaPeso"};  ///< the words of the approximate weight, beside txtPesu(17)

    Frame Frame2{form, "Frame2"};
    Frame fraPDM{form, "fraPDM"};
    Frame fraTriple{form, "fraTriple"};
    Frame fraDobleVar{form, "fraDobleVar"};
    Frame fraCremallera{form, "fraCremallera"};
    Frame fraCre1{form, "fraCre1"};
    Frame fraMatDisco{form, "fraMatDisco"};
    Frame fraCubo{form, "fraCubo"};
    Frame fraMatCre{form, "fraMatCre"};

    Button cmdEng{form, "cmdEng"};
    // One sketch for each frame of measures.
    screen::Sketch sketch{form, "picPieza"};
    screen::Sketch picDoble{form, "picDoble"};
    screen::Sketch picTriple{form, "picTriple"};
    screen::Sketch picVariable{form, "picVariable"};
    screen::Sketch picCremallera{form, "picCremallera"};

    // The material rows chosen for disc, hub and rack, each with its article; a move recalculates.
    sql::ListenedRecordset rsMatDisco;
    sql::ListenedRecordset rsMatCubo;
    sql::ListenedRecordset rsMatCre;

    // Guards that stop the chain of field, event, field.
    bool bCargandoPropuesta = false;  ///< a proposal is being put on the form: no totals
    bool bCargandoDisco = false;      ///< a save is running: no recalculation of the disc
    bool bCargandoCubo = false;       ///< a save is running: no prices of the hub

    /// What the user has typed since an empty proposal or a stored one was put on the form.
    TypedFields typed;

    /// Which proposal is on show and how far it has come.
    const ShownProposal proposal{txtPesu};

    /// The product type on show: the list's index, stored as DPI_Tipo.
    int type() const { return cboTipoPre.listIndex(); }
    /// What is known of it.
    const data::ProductType& product() const { return data::productType(type()); }

    /// Whether Text1(14) and (18) are the second hub of the variable product on show: always for the sprocket; for the
    /// pulley, whose load leaves them as they were, once the user has changed the text of one of them.
    bool secondHubIsKnown() const;

    /// Takes note of a change of a text, which is the user's or the program's; a load's changes are the program's.
    void noteChange(const TextBox& box);

    /// Tells that a measure has changed: the sketches are drawn anew.
    void invalidateSketches();

    /// Every text box of the form in the order of its making, which is that of the declarations above: Text1, Text3,
    /// Text4, txtPesu, txtPDM, txtTriple, txtDCV, txtCre, each by rising index, then the single ones.
    void forEachTextBox(const std::function<void(TextBox&)>& action);
};

/// Amounts and weights that are shown with thousands.
inline constexpr const char* amountMask = "#,###,##0.00";

/// A field's text as a number; error 13 when it is none.
double number(const TextBox& box);
/// A field's text as a number, 0 when it is none.
double numberOrZero(const TextBox& box);
/// Writes a number in its default text form.
void put(TextBox& box, double value);
/// Writes a column's value in its default text form; error 94 for null.
void put(TextBox& box, const sql::Value& value);
/// Half away from zero to two decimals: money and weights.
double round2(double value);
/// The key of a list entry: the first three characters of its text.
std::string entryKey(const ComboBox& list);

}  // namespace velmora::estimate
