#include "velmora/reference/frm_eng_val.h"

#include "velmora/data/fixed_lists.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/reference/value_forms.h"
#include "velmora/reference/value_rules.h"

namespace velmora::reference {

using runtime::CDbl;
using runtime::Format;
using screen::TextBox;

namespace {

constexpr int gears = 0;

}  // namespace

frmENGVal::frmENGVal(session::Session& session, platform::Desk& desk)
    : Form("frmENGVal"),
      oUtil_(desk.screen, session.Connection()),
      newRow_(f_.cmdNuevo, f_.Frame1, f_.Text1),
      rows_(f_, session, desk.screen) {
    setCaption("Mantenimiento de valores para Engranajes");
    arrange();
    wire();
    Form_Load();
}

void frmENGVal::Form_Load() {
    oUtil_.ColorFoco(screen::colors::yellow);
    oUtil_.ColorNormal(screen::colors::white);
    // Chosen C-168: the fields start at zero, the value that an emptied field gets.
    f_.Text1.forEach([](TextBox& box) { box.setText("0"); });
    for (const std::string_view family : data::familiasEngranaje) {
        f_.cboDobles.addItem(family);
    }
    f_.cboDobles.setListIndex(gears);
    rows_.msFiltrarEngranajes(gearModule);
}

void frmENGVal::wire() {
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
    f_.cboDobles.onClick = [this] { cboDobles_Click(); };
    f_.Text1.on(&TextBox::onGotFocus, {[this](int i) { oUtil_.EntrarCampo(f_.Text1(i)); }});
    f_.Text1.on(&TextBox::onLostFocus, {[this](int i) { Text1_LostFocus(i); }});
    // Chosen C-161: only the teeth are restricted to whole numbers; a module has decimals.
    f_.Text1.on(&TextBox::onKeyPress,
                {[this](int i, screen::KeyPress& key) { oUtil_.TeclaCampo(f_.Text1(i), key, i == gearTeeth); }});
    f_.dbgRs.onButtonClick = [this](int) { chooseRow(); };
    f_.cmdNuevo.onClick = [this] { newRow_.click(); };
    f_.cmdGrabar.onClick = [this] { save(); };
    f_.cmdSalir.onClick = [this] { unload(); };
}

// A gear disc has no hub.
void frmENGVal::cboDobles_Click() {
    const bool hub = f_.cboDobles.listIndex() == gears;
    for (const int ofHub : {gearHubDiameter, gearTotalWidth, gearHubWidth}) {
        f_.Text1(ofHub).setVisible(hub);
        f_.Label1(ofHub).setVisible(hub);
    }
    f_.picMedidas.invalidate();
}

void frmENGVal::Text1_LostFocus(int Index) {
    TextBox& box = f_.Text1(Index);
    oUtil_.SalirCampo(box);
    if (box.text().empty()) {
        box.setText("0");
    }
    if (Index == gearTeeth) {
        msCalcularEngranaje();
    } else if (Index == gearFaceWidth) {
        const double c = CDbl(f_.Text1(gearTotalWidth).text()) - CDbl(f_.Text1(gearFaceWidth).text());
        f_.Text1(gearHubWidth).setText(Format(c, valueMask));
    }
    rows_.msFiltrarEngranajes(Index);
}

void frmENGVal::msCalcularEngranaje() {
    const double module = CDbl(f_.Text1(gearModule).text());
    const double teeth = CDbl(f_.Text1(gearTeeth).text());
    if (module == 0 || teeth == 0) {
        return;
    }
    const GearMeasures measures = gearMeasures(module, teeth);
    f_.Text1(gearPitch).setText(Format(measures.paso, valueMask));
    f_.Text1(gearPitchDiameter).setText(Format(measures.dp, valueMask));
    f_.Text1(gearOutsideDiameter).setText(Format(measures.de, valueMask));
    f_.Text1(gearInnerDiameter).setText(Format(measures.di, valueMask));
}

void frmENGVal::chooseRow() {
    if (rows_.choose()) {
        unload();
    }
}

void frmENGVal::save() {
    if (rows_.save()) {
        saved_ = true;
        unload();
    }
}

}  // namespace velmora::reference
