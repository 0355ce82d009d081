#include "velmora/reference/frm_materias.h"

#include "velmora/platform/runtime/numbers.h"

namespace velmora::reference {

using screen::TextBox;

frmMaterias::frmMaterias(session::Session& session, platform::Desk& desk)
    : Form("frmMaterias"),
      oUtil_(desk.screen, session.Connection()),
      list_(f_, session),
      article_(f_, session, desk.screen, oUtil_),
      saving_(f_, list_, session, desk.screen, desk.clock) {
    oUtil_.ColorFoco(screen::colors::yellow);
    oUtil_.ColorNormal(screen::colors::white);
    setCaption("Asignación Articulos <-> Material");
    arrange();
    wire();
    msCargarParametros();
}

void frmMaterias::wire() {
    onKeyDown = [this](screen::KeyDown& key) { Form_KeyDown(key); };
    f_.Text1.on(&TextBox::onGotFocus, {[this](int i) { oUtil_.EntrarCampo(f_.Text1(i)); }});
    f_.Text1.on(&TextBox::onLostFocus, {[this](int i) { Text1_LostFocus(i); }});
    // Chosen C-165: only digits are accepted in the number. The helper's change to the key is not passed on.
    f_.Text1(materialId).onKeyPress = [this](screen::KeyPress& key) {
        if (!f_.bNuevo) {
            oUtil_.TeclaCampo(f_.Text1(materialId), key, true);
        }
    };
    f_.Check2.onClick = [this] { article_.Check2_Click(); };
    f_.Check4.onClick = [this] { article_.Check4_Click(); };
    f_.cmdBuscarArticulo.onClick = [this] { msBuscarArticuloMaterial(false); };
    f_.cmdNuevo.onClick = [this] { newMaterial(); };
    f_.cmdCancelar.onClick = [this] { f_.browse(); };
    f_.cmdGuardar.onClick = [this] { saving_.save(); };
    f_.cmdBorrar.onClick = [this] { saving_.remove(); };
    f_.cmdSalir.onClick = [this] { unload(); };
}

// Also called for keys pressed in the grid: the form receives every key first. The decimal point of the pad remains a
// point, because a code may contain one.
void frmMaterias::Form_KeyDown(screen::KeyDown& key) {
    using screen::Key;
    switch (key.key) {
        case Key::enter:
            key.key = Key::none;
            tabForward();
            break;
        case Key::escape:
            unload();
            break;
        case Key::f1:
            msBuscarArticuloMaterial(false);
            break;
        case Key::f4:
            newMaterial();
            break;
        case Key::f5:
            saving_.save();
            break;
        default:
            break;
    }
}

void frmMaterias::Text1_LostFocus(int Index) {
    TextBox& box = f_.Text1(Index);
    oUtil_.SalirCampo(box);
    if (Index == materialId && runtime::IsNumeric(box.text())) {
        list_.find(std::string(box.text()));
    } else if (Index == materialArticleCode && !box.text().empty()) {
        msBuscarArticuloMaterial(true);
    }
}

// The printed name and the boxes keep their values as defaults for the new material.
void frmMaterias::newMaterial() {
    f_.bNuevo = true;
    f_.Text1(materialId).setLocked(true);
    f_.Text1(materialId).setText("NUEVO");
    f_.clearEntry();
    f_.Text1(materialName).setFocus();
}

}  // namespace velmora::reference
