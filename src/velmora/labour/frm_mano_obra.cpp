#include "velmora/labour/frm_mano_obra.h"

#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/deed.h"

namespace velmora::labour {

using screen::TextBox;

namespace {

// The captions of fraLinea: they tell what a save will do.
constexpr const char* opened = "Edición de linea";
constexpr const char* adding = "Nueva Linea";
constexpr const char* editing = "Editar Linea";
constexpr const char* saved = "Datos de la Linea";

}  // namespace

frmManoObra::frmManoObra(session::Session& session, platform::Desk& desk)
    : Form("frmManoObra"),
      session_(session),
      desk_(desk),
      oUtil_(desk.screen, session.Connection()),
      machines_(f_, session, oUtil_),
      lines_(f_, machines_, session),
      writing_(session, desk.screen, desk.clock),
      saving_(f_, writing_, session, desk.screen) {
    oUtil_.ColorFoco(screen::colors::yellow);
    oUtil_.ColorNormal(screen::colors::white);
    setCaption("Calculo de Mano de Obra");
    f_.fraLinea.setCaption(opened);
    arrange();
    wire();
}

void frmManoObra::wire() {
    onActivate = [this] { Form_Activate(); };
    onKeyDown = [this](screen::KeyDown& key) { Form_KeyDown(key); };
    f_.txtLinea.on(&TextBox::onGotFocus, {[this](int i) { oUtil_.EntrarCampo(f_.txtLinea(i)); }});
    f_.txtLinea.on(&TextBox::onLostFocus, {[this](int i) {
        machines_.txtLinea_LostFocus(i);
        if (i == machine) {
            passOverFoundOperator();
        }
    }});
    f_.txtLinea(machine).onKeyPress = [this](screen::KeyPress& key) {
        oUtil_.TeclaCampo(f_.txtLinea(machine), key, true);
    };
    f_.txtLinea(minutes).onKeyPress = [this](screen::KeyPress& key) {
        oUtil_.TeclaCampo(f_.txtLinea(minutes), key, false);
    };
    f_.cboOperarios.onClick = [this] { machines_.cboOperarios_Click(); };
    f_.cmdBuscarMaquina.onClick = [this] { searchMachine(); };
    f_.cmdNuevaLinea.onClick = [this] { newLine(); };
    f_.cmdEditarLinea.onClick = [this] { editLine(); };
    f_.cmdEliminarLinea.onClick = [this] { deleteLine(); };
    f_.cmdGrabarLinea.onClick = [this] { saveLine(); };
    f_.cmdCancelar.onClick = [this] {
        f_.browse();
        returnToActions();
    };
    f_.cmdSalir.onClick = [this] { unload(); };
}

void frmManoObra::Form_Activate() {
    // Kept K-102: a form that may change lines opens with the line enabled, before any button is pressed; a save then
    // updates the current line. Required as it is; it determines what is stored.
    f_.fraAcciones.setEnabled(bModificable);
    f_.fraLinea.setEnabled(bModificable);
    status().setStateSource([this] {
        return screen::RecordState{.standing = bModificable ? screen::Standing::none : screen::Standing::readOnly};
    });
    returnToActions();
}

// Chosen C-357: the form opens on "Nueva Linea" and returns there after a save, because a line is mostly followed by
// another; on the list, where nothing may be changed.
void frmManoObra::returnToActions() {
    if (f_.cmdNuevaLinea.canTakeFocus()) {
        f_.cmdNuevaLinea.setFocus();
    }
}

// Chosen C-358: a machine that was found has brought its operator and price: Enter goes on to the minutes. Control and
// Enter stops at both.
void frmManoObra::passOverFoundOperator() {
    const bool found = !f_.txtLinea(machineName).text().empty();
    f_.cboOperarios.setTabStop(!found);
    f_.txtLinea(hourPrice).setTabStop(!found);
}

void frmManoObra::Form_KeyDown(screen::KeyDown& key) {
    passUsualKeys(key);
    if (key.key == screen::Key::f2) {
        searchMachine();
    } else if (key.key == screen::Key::escape) {
        // Chosen C-359: Esc closes the form, as "&Salir" does.
        unload();
    }
}

void frmManoObra::searchMachine() {
    if (!f_.fraLinea.isEnabled()) {
        status().tellNote("No hay ninguna línea en edición (Nueva Linea)");
        return;
    }
    const std::int32_t id = machines_.msBuscarMaquina();
    if (id > 0) {
        f_.txtLinea(machine).setText(runtime::CStr(std::int64_t{id}));
        machines_.msCargarMaquina(id);
        f_.txtLinea(minutes).setFocus();
    }
}

void frmManoObra::newLine() {
    f_.fraAcciones.setVisible(false);
    f_.fraLinea.setEnabled(true);
    f_.fraLinea.setCaption(adding);
    f_.put(0, 4, "");
    f_.put(5, 8, "0");
    f_.txtLinea(machine).setFocus();
}

void frmManoObra::editLine() {
    f_.fraLinea.setCaption(editing);
    if (!lines_.hasLines()) {
        status().tellNote("La propuesta no tiene líneas de mano de obra");
    } else {
        f_.fraAcciones.setVisible(false);
        f_.fraLinea.setEnabled(true);
        f_.txtLinea(machine).setFocus();
    }
}

void frmManoObra::saveLine() {
    if (!saving_.isComplete()) {
        return;
    }
    const bool isNew = f_.fraLinea.caption() == adding;
    if (!saving_.save(nIdDpi, isNew ? sql::Recordset() : lines_.current())) {
        return;
    }
    f_.browse();
    f_.fraLinea.setCaption(saved);
    // Told first: the line is stored, also when the list cannot be read again.
    status().tellDeed(session::deedNow("Línea grabada", desk_.clock));
    msCargarLineas();
    returnToActions();
}

void frmManoObra::deleteLine() {
    if (!lines_.hasLines()) {
        status().tellNote("La propuesta no tiene líneas de mano de obra");
        return;
    }
    const sql::Recordset line = lines_.current();
    const sql::Value& name = line["Operario"];
    const screen::Answer answer = desk_.screen.show(
        {.text = "Realmente desea eliminar la linea del operario " + (name.isNull() ? std::string() : name.toText()),
         .icon = screen::Icon::question,
         .buttons = screen::Buttons::yesNo});
    if (answer == screen::Answer::yes &&
        writing_.run({.nIdDpi = nIdDpi, .line = line, .question = "¿Desea eliminarla de todos modos?"},
                     [&] { deleteRow(line); })) {
        status().tellDeed(session::deedNow("Línea eliminada", desk_.clock));
        msCargarLineas();
    }
}

// Differs D-104: the line and its proposal are read again before a delete, as before a save.
void frmManoObra::deleteRow(const sql::Recordset& line) {
    session_.Connection().execute("Delete from modpi where modpi_id = " + line["modpi_id"].toText());
}

}  // namespace velmora::labour
