#include "velmora/proposal/frm_bercial_pinones.h"

#include <algorithm>
#include <utility>

#include "velmora/data/chains.h"
#include "velmora/data/fixed_lists.h"
#include "velmora/estimate/stored_fields.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/platform/version.h"
#include "velmora/proposal/cut_sheet.h"
#include "velmora/proposal/field_names.h"
#include "velmora/reference/frm_pdm_val.h"

namespace velmora::proposal {

using estimate::ComboBox;
using estimate::TextBox;

namespace {

template <typename Texts>
void fill(ComboBox& list, const Texts& texts) {
    for (const auto& text : texts) {
        list.addItem(text);
    }
}

}  // namespace

frmBercialPiñones::frmBercialPiñones(session::Session& session, platform::Desk& desk)
    : Form("frmBercialPiñones"),
      session_(session),
      desk_(desk),
      oUtil_(desk.screen, session.Connection()),
      cutPrices_(session),
      weights_(f_),
      constants_(f_, session),
      materials_(f_, session, desk.screen),
      totals_(f_, cutPrices_, weights_, oUtil_),
      costing_(f_, cutPrices_, weights_, totals_, oUtil_),
      doubles_(f_, session, desk.screen),
      rack_(f_, totals_, desk.screen),
      geometry_(f_, {constants_, costing_, materials_, doubles_, rack_, totals_}, desk.screen, oUtil_),
      presentation_(f_),
      gears_(f_, presentation_, materials_, session),
      newProposal_(f_, totals_),
      tabStops_(f_),
      history_(f_, controls_, session, desk.screen),
      customers_(f_, session, desk.screen, oUtil_),
      stored_(session),
      loading_(f_, controls_, {materials_, presentation_, geometry_, doubles_, totals_, history_, stored_}, session,
               desk.screen),
      saving_(f_, {loading_, stored_}, session, desk.screen, desk.clock),
      buttons_(f_, controls_, presentation_, loading_),
      labour_(f_, {totals_, saving_, buttons_}, session, desk),
      gearStep_(f_, gears_, session, desk),
      duplicating_(f_, loading_, session, desk.screen, oUtil_),
      emptyForm_(f_, {materials_, history_, buttons_, newProposal_, stored_}, desk.screen),
      deleting_(f_, {emptyForm_, stored_}, session, desk.screen, desk.clock),
      historyGrid_(f_, {history_, loading_}, session, desk),
      sideWindows_(f_, session, desk),
      questions_(f_, {cutPrices_, constants_, weights_, session}, session, desk),
      draft_(f_, stored_),
      formStatus_(f_, controls_, draft_, desk.clock, [this] { return bConsulta; }) {
    // Chosen C-010: after construction, before any event is wired, the fields hold the values of an empty proposal.
    msLimpiarCampos();
    arrange();
    wireFields();
    wireLists();
    wireButtons();
    writeHints(f_, controls_);
    Form_Load();
    draft_.settle();
    formStatus_.followPrices();
}

void frmBercialPiñones::Form_Load() {
    oUtil_.Conexion(session_.Connection());
    oUtil_.ColorFoco(screen::colors::yellow);
    oUtil_.ColorNormal(screen::colors::white);
    cutPrices_.msCargarPreciosCorte();
    setCaption("Propuestas de Piñones Especiales ( v." + platform::version() + ")");
    fill(f_.cboFiltroHistorico, data::filtrosHistorico);
    f_.cboFiltroHistorico.setListIndex(data::todos);
    fill(f_.cboHerramienta, data::herramientas);
    f_.cboHerramienta.setListIndex(0);
    for (const data::ProductType& type : data::productTypes) {
        f_.cboTipoPre.addItem(type.name);
    }
    f_.cboTipoPre.setListIndex(0);
    fill(f_.cboDobles, data::chains);
    f_.cboDobles.setListIndex(0);
    rs_ = {};
    materials_.msCargarMaterialesConCubo();
    materials_.msCargarMaterialesCre();
    msLimpiarCampos();
    history_.msHistorico(false);
    f_.Text1(measure::bore).setText("24");
    for (TextBox* box :
         {&f_.txtPesu(money::created), &f_.txtPesu(money::proposal), &f_.txtPesu(money::accepted), &f_.txtExtra}) {
        box->setText("");
    }
    newProposal_.begin();
}

void frmBercialPiñones::msLimpiarCampos() {
    // Chosen C-060: array by array in order of index, then the single boxes; every write runs its field's event. The
    // form has no box txtArticulo.
    f_.forEachTextBox([this](TextBox& box) { box.setText(estimate::isFreeText(f_, box) ? "" : "0,00"); });
    for (const int i : {money::customerCode, money::customerName, money::customerReference, money::proposal,
                        money::created, money::workOrder, money::accepted}) {
        f_.txtPesu(i).setText("");
    }
    f_.txtPesu(money::sawCharge).setText("0,00");
    f_.txtPesu(money::discCut).setText("0,00");
    f_.Text1(measure::bore).setText("24,00");
    f_.txtObservaciones.setText("");
}

void frmBercialPiñones::Form_Activate() {
    desk_.screen.processEvents();
    if (!bConsulta) {
        return;
    }
    keepFromWriting();
    if (f_.txtPesu(money::lot).isEnabled()) {
        f_.txtPesu(money::lot).setFocus();
    } else {
        f_.cboFiltroHistorico.setFocus();
    }
}

bool frmBercialPiñones::msCargarPresupuesto(std::int32_t nIdDpi, bool bEditable) {
    rimDue_ = false;
    const bool loaded = loading_.msCargarPresupuesto(nIdDpi, bEditable);
    keepFromWriting();
    emptyForm_.noteStored();
    if (loaded) {
        formStatus_.tellDeed("cargada");
    }
    return loaded;
}

Restored frmBercialPiñones::restoreDraft(std::string_view draft) {
    const std::string number = Draft::numberIn(draft);
    Restored result = Restored::asItWas;
    if (!number.empty()) {
        const bool found = runtime::IsNumeric(number) && !stored_.read(number).eof() &&
                           msCargarPresupuesto(runtime::CLng(number), true) && !f_.proposal.isAccepted();
        result = !found                        ? Restored::asNew
                 : draft_.beganWithThis(draft) ? Restored::asItWas
                                               : Restored::changedMeanwhile;
    }
    if (result == Restored::asNew) {
        stored_.remember({});
    }
    draft_.settle();
    draft_.restore(draft);
    if (result == Restored::asNew) {
        for (const int i : {money::proposal, money::created, money::workOrder, money::accepted}) {
            f_.txtPesu(i).setText("");
        }
        f_.cboTipoPre.setEnabled(true);
    }
    history_.msHistorico(false);
    return result;
}

// Differs D-065: a read-only form writes nothing, neither to its proposal nor to another one loaded from the history,
// whose load enables the changes.
void frmBercialPiñones::keepFromWriting() {
    if (bConsulta) {
        buttons_.disableWriting();
    }
}

std::function<void()> frmBercialPiñones::unlessConsultation(std::function<void()> action) {
    return [this, action = std::move(action)] {
        if (!bConsulta) {
            action();
        }
    };
}

void frmBercialPiñones::wireFields() {
    const auto enter = [this](const screen::ControlArray<TextBox>& array) {
        array.on(&TextBox::onGotFocus, {[this, &array](int i) { oUtil_.EntrarCampo(array(i)); }});
    };
    enter(f_.Text1);
    enter(f_.Text4);
    f_.txtPesu.on(&TextBox::onGotFocus, {[this](int i) {
        oUtil_.EntrarCampo(f_.txtPesu(i));
        if (i == 0) {
            customers_.codeEntered();
        }
    }});

    f_.Text1.on(&TextBox::onChange, {[this](int i) { geometry_.Text1_Change(i); }});
    f_.Text1.on(&TextBox::onLostFocus, {[this](int i) {
        rimDue_ = rimDue_ && i != measure::rim;
        geometry_.Text1_LostFocus(i);
    }});
    f_.Text1.on(&TextBox::onKeyPress, {[this](int i, screen::KeyPress& key) { geometry_.Text1_KeyPress(i, key); }});
    // Chosen C-062: leaving the roller, the last field of the toothing, refreshes the list of similar proposals; pitch
    // and teeth do not.
    geometry_.onToothingEntered = [this] {
        rimDue_ = true;
        history_.msHistorico(false);
        formStatus_.tellMissingToothing();
    };

    f_.Text3.on(&TextBox::onChange, {[this](int i) { geometry_.Text3_Change(i); }});

    f_.Text4.on(&TextBox::onChange, {[this](int i) { costing_.Text4_Change(i); }});
    f_.Text4.on(&TextBox::onDblClick, {[this](int i) { costing_.Text4_DblClick(i); }});
    f_.Text4.on(&TextBox::onLostFocus, {[this](int i) { costing_.Text4_LostFocus(i); }});
    f_.Text4.on(&TextBox::onKeyPress, {[this](int i, screen::KeyPress& key) { costing_.Text4_KeyPress(i, key); }});

    f_.txtPesu.on(&TextBox::onChange, {[this](int i) {
        totals_.txtPesu_Change(i);
        if (i == money::discPrice || i == money::hubPrice || i == money::barPrice) {
            formStatus_.followPrices();
        }
        if (i == money::customerName) {
            tabStops_.followCustomerName();
        }
    }});
    f_.txtPesu.on(&TextBox::onKeyPress, {[this](int i, screen::KeyPress& key) { totals_.txtPesu_KeyPress(i, key); }});
    f_.txtPesu.on(&TextBox::onLostFocus, {[this](int i) {
        totals_.txtPesu_LostFocus(i);
        if (i == 0) {
            customers_.msValidarCliente();
        }
    }});

    // Kept K-018: the remarks are red with the focus, and yellow, not white, without it.
    f_.txtObservaciones.onGotFocus = [this] {
        oUtil_.ColorFoco(screen::colors::red);
        oUtil_.EntrarCampo(f_.txtObservaciones);
    };
    f_.txtObservaciones.onLostFocus = [this] {
        oUtil_.ColorFoco(screen::colors::yellow);
        oUtil_.EntrarCampo(f_.txtObservaciones);
    };
}

void frmBercialPiñones::wireLists() {
    f_.cboTipoPre.onClick = [this] {
        presentation_.cboTipoPre_Click();
        newProposal_.typeChosen();
        tabStops_.followType();
        questions_.offerOnFields();
    };
    f_.cboFiltroHistorico.onClick = [this] { history_.msHistorico(false); };
    f_.cboMatDisco.onClick = [this] { materials_.cboMatDisco_Click(); };
    f_.cboMatDisco.onChosen = [this] { materials_.cboMatDisco_Click(); };
    f_.cboMatCubo.onClick = [this] { materials_.cboMatCubo_Click(); };
    f_.cboMatCubo.onChosen = [this] { materials_.cboMatCubo_Click(); };
    f_.cboMatCre.onClick = [this] { materials_.cboMatCre_Click(); };
    f_.rsMatDisco.onMoveComplete = [this] { costing_.rsMatDisco_MoveComplete(); };
    f_.rsMatCubo.onMoveComplete = [this] { costing_.rsMatCubo_MoveComplete(); };
    f_.rsMatCre.onMoveComplete = [this] { rack_.rsMatCre_MoveComplete(); };
}

void frmBercialPiñones::wireButtons() {
    onActivate = [this] { Form_Activate(); };
    onKeyDown = [this](screen::KeyDown& key) { Form_KeyDown(key); };
    controls_.cmdNueva.onClick = unlessConsultation([this] { emptyForm_.showOnRequest(); });
    controls_.XPGrabar.onClick = [this] { keyDown(screen::Key::f5); };
    controls_.XPImprime.onClick = [this] { msHojaCorte(f_, controls_, session_, desk_); };
    controls_.XPSalir.onClick = [this] { unload(); };
    controls_.cmdCambios.onClick = unlessConsultation([this] { buttons_.cmdCambios_Click(); });
    controls_.cmdManoObra.onClick = unlessConsultation([this] { labour_.cmdManoObra_Click(); });
    controls_.cmdDuplicar.onClick = unlessConsultation([this] { duplicate(); });
    controls_.cmdeliminarrPropuesta.onClick = unlessConsultation([this] { remove(); });
    f_.cmdEng.onClick = [this] { gearStep_.cmdEng_Click(); };
    controls_.XPButton1.onClick = [this] {
        reference::frmPDMVal values(session_, desk_);
        desk_.screen.showModal(values);
    };
    controls_.dbgDPI.onButtonClick = [this](int column) {
        const std::string before = f_.proposal.number();
        historyGrid_.dbgDPI_ButtonClick(column);
        keepFromWriting();
        if (f_.proposal.number() != before) {
            formStatus_.tellDeed("cargada");
        }
    };
    controls_.cmdDoc.onClick = [this] { sideWindows_.cmdDoc_Click(); };
    controls_.cmdPorque.onClick = [this] { questions_.showWhy(); };
    controls_.cmdHPrecios.on(&Button::onClick, {[this](int i) { sideWindows_.cmdHPrecios_Click(i); }});
    emptyForm_.msLimpiarCampos = [this] { msLimpiarCampos(); };
}

const std::vector<frmBercialPiñones::FunctionKey>& frmBercialPiñones::keyTable() {
    using screen::Key;
    static const std::vector<FunctionKey> table{
        {Key::f1, "Mano de obra",
         [](frmBercialPiñones& form) {
             if (form.f_.txtPesu(money::customerCode).isEnabled()) {
                 form.controls_.cmdManoObra.onClick();
             } else {
                 form.formStatus_.tellRefusal("No se puede abrir la mano de obra");
             }
         }},
        {Key::f2, "Buscar cliente",
         [](frmBercialPiñones& form) {
             if (form.f_.txtPesu(money::customerCode).isEnabled()) {
                 form.customers_.msBuscarCliente();
             } else {
                 form.formStatus_.tellRefusal("No se puede cambiar el cliente");
             }
         }},
        {Key::f3, "Historial de piezas del mismo tipo",
         [](frmBercialPiñones& form) { form.history_.msHistorico(true); }},
        {Key::f4, "Ir al historial",
         [](frmBercialPiñones& form) {
             form.jumpTo(form.controls_.dbgDPI);
             form.formStatus_.tellEmptyHistory();
         }},
        {Key::f5, "Grabar", [](frmBercialPiñones& form) { form.save(); }},
        {Key::f6, "Duplicar la propuesta",
         [](frmBercialPiñones& form) {
             if (form.controls_.cmdDuplicar.isEnabled()) {
                 form.controls_.cmdDuplicar.onClick();
             } else {
                 form.formStatus_.tellRefusal("No se puede duplicar");
             }
         }},
        {Key::f7, "Ir al Nº de piezas",
         [](frmBercialPiñones& form) {
             form.passThroughRim();
             form.jumpTo(form.f_.txtPesu(money::pieces));
         }},
        {Key::f8, "Imprimir",
         [](frmBercialPiñones& form) { msHojaCorte(form.f_, form.controls_, form.session_, form.desk_); }},
        {Key::f9, "Eliminar la propuesta",
         [](frmBercialPiñones& form) {
             if (form.controls_.cmdeliminarrPropuesta.isEnabled() && !form.bConsulta && !form.f_.proposal.isNew()) {
                 const std::string number = form.f_.proposal.number();
                 form.deleting_.msEliminar();
                 form.tellDeletionOf(number);
             } else {
                 form.formStatus_.tellRefusal("No se puede eliminar");
             }
         }},
        {Key::f12, "Por qué es este el precio", [](frmBercialPiñones& form) { form.questions_.showWhy(); }},
    };
    return table;
}

std::vector<screen::KeyWords> frmBercialPiñones::functionKeys() const {
    std::vector<screen::KeyWords> words;
    for (const FunctionKey& row : keyTable()) {
        words.push_back({.key = row.key, .words = row.words});
    }
    return words;
}

void frmBercialPiñones::Form_KeyDown(screen::KeyDown& key) {
    passUsualKeys(key);
    if (key.key == screen::Key::escape) {
        unload();
        return;
    }
    const auto row = std::ranges::find(keyTable(), key.key, &FunctionKey::key);
    if (row != keyTable().end()) {
        row->press(*this);
    }
}

// Chosen C-369: a jump over the rim passes through it after the toothing was entered, because leaving it calculates the
// total width and the cuts of the piece: the same row is stored as with Enter from field to field.
void frmBercialPiñones::passThroughRim() {
    TextBox& rim = f_.Text1(measure::rim);
    if (rimDue_ && rim.tabStop()) {
        moveFocus(rim);
    }
    rimDue_ = false;
}

// Chosen C-356: F4 goes to the history and F7 to the number of pieces, as a click there does.
void frmBercialPiñones::jumpTo(screen::Control& control) {
    moveFocus(control);
}

void frmBercialPiñones::save() {
    const bool changeable = f_.txtPesu(money::customerCode).enabled() && !f_.proposal.isAccepted();
    if (!bBloqueoGrabar && controls_.XPGrabar.isEnabled() && changeable) {
        const screen::Hourglass hourglass(desk_.screen);
        if (msGrabar(false)) {
            emptyForm_.noteStored();
            formStatus_.tellDeed("grabada");
        }
    } else {
        formStatus_.tellRefusal("No se puede grabar");
    }
}

void frmBercialPiñones::duplicate() {
    const std::string before = f_.proposal.number();
    if (f_.proposal.isNew() || !f_.txtPesu(money::customerCode).enabled()) {
        formStatus_.tellRefusal("No se puede duplicar");
    }
    duplicating_.cmdDuplicar_Click();
    if (!before.empty() && f_.proposal.number() != before) {
        formStatus_.tellDeed("creada como copia de la " + before);
    }
}

void frmBercialPiñones::tellDeletionOf(const std::string& number) {
    if (!number.empty() && f_.proposal.isNew()) {
        formStatus_.tellDeedOf(number, "eliminada");
    }
}

// When another user's change has prevented the deletion, the form stays open with what was typed.
void frmBercialPiñones::remove() {
    deleting_.msEliminar();
    if (!deleting_.wasHeldBack()) {
        unload();
    }
}

}  // namespace velmora::proposal
