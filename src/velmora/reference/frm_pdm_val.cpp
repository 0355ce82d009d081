#include "velmora/reference/frm_pdm_val.h"

#include "velmora/data/chains.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/reference/refusal.h"
#include "velmora/reference/value_forms.h"
#include "velmora/reference/value_rules.h"

namespace velmora::reference {

using runtime::CDbl;
using runtime::Format;
using screen::TextBox;

frmPDMVal::frmPDMVal(session::Session& session, platform::Desk& desk)
    : Form("frmPDMVal"),
      desk_(desk),
      oUtil_(desk.screen, session.Connection()),
      newRow_(f_.cmdNuevo, f_.Frame1, f_.Text1),
      rows_(f_, newRow_, session, desk.screen, desk.clock) {
    setCaption("Mantenimiento de valores para piñones / discos dobles");
    arrange();
    wire();
    Form_Load();
}

void frmPDMVal::Form_Load() {
    oUtil_.ColorFoco(screen::colors::yellow);
    oUtil_.ColorNormal(screen::colors::white);
    f_.Text1.forEach([](TextBox& box) { box.setText("0"); });
    for (const std::string_view chain : data::chains) {
        f_.cboDobles.addItem(chain);
    }
    f_.cboDobles.setListIndex(0);
}

void frmPDMVal::wire() {
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
    f_.cboDobles.onClick = [this] { cboDobles_Click(); };
    f_.Text1.on(&TextBox::onGotFocus, {[this](int i) { oUtil_.EntrarCampo(f_.Text1(i)); }});
    f_.Text1.on(&TextBox::onLostFocus, {[this](int i) { Text1_LostFocus(i); }});
    f_.Text1.on(&TextBox::onKeyPress,
                {[this](int i, screen::KeyPress& key) { oUtil_.TeclaCampo(f_.Text1(i), key, i == chainTeeth); }});
    f_.cmdNuevo.onClick = [this] { newRow_.click(); };
    f_.cmdGrabar.onClick = [this] { rows_.save(); };
    f_.cmdSalir.onClick = [this] { unload(); };
}

void frmPDMVal::cboDobles_Click() {
    if (rows_.load()) {
        return;
    }
    const screen::Answer answer =
        desk_.screen.show({.text = std::string("No Existen Valores para este tipo") + lineBreak +
                                   "Desea crear el primer registro para este tipo",
                           .icon = screen::Icon::critical,
                           .buttons = screen::Buttons::yesNo});
    if (answer == screen::Answer::yes) {
        msPrimerRegistro();
    }
}

void frmPDMVal::msPrimerRegistro() {
    // Chosen C-170: a row that is already being added stays in that state.
    newRow_.begin();
    f_.Frame1.setEnabled(true);
    for (const int ofChain : {1, 2, 3, 4, 5, 11}) {
        f_.Text1(ofChain).setLocked(false);
        f_.Text1(ofChain).setEnabled(ofChain != chainX);
    }
    f_.Text1(chainPitch).setFocus();
}

void frmPDMVal::Text1_LostFocus(int Index) {
    TextBox& box = f_.Text1(Index);
    oUtil_.SalirCampo(box);
    if (box.text().empty()) {
        box.setText("0");
    }
    // Chosen C-167: the mask is applied to computed values only; a field keeps the text that was typed.
    const auto number = [this](int field) { return CDbl(f_.Text1(field).text()); };
    const auto put = [this](int field, double value) { f_.Text1(field).setText(Format(value, valueMask)); };
    if (Index == chainTeeth && newRow_.isAdding()) {
        put(chainDp, FnDpCadena(number(chainTeeth), number(chainPitch)));
    } else if (Index == chainB2) {
        put(chainX, number(chainB2) - number(chainB1));
    } else if (Index == chainDp) {
        put(chainDf, number(chainDp) - number(chainRoller));
    }
}

}  // namespace velmora::reference
