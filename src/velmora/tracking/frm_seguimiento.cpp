#include "velmora/tracking/frm_seguimiento.h"

#include <utility>

#include "velmora/data/fixed_lists.h"
#include "velmora/data/product_types.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/version.h"
#include "velmora/tracking/date_fields.h"
#include "velmora/tracking/export.h"
#include "velmora/tracking/filters.h"

namespace velmora::tracking {

using screen::TextBox;

namespace {

constexpr std::int16_t yes = -1;  // the language's True

bool isDateCriterion(int Index) {
    return Index == dateFrom || Index == dateTo;
}

}  // namespace

frmSeguimiento::frmSeguimiento(session::Session& session, platform::Desk& desk, std::shared_ptr<ListOrder> order)
    : Form("frmSeguimiento"),
      session_(session),
      desk_(desk),
      oUtil_(desk.screen, session.Connection()),
      list_(f_, session, std::move(order)),
      detail_(f_, oUtil_, desk.screen),
      opening_(f_, session, desk, [this] { reload(); }),
      acceptance_(f_, session, oUtil_, desk, [this] { reload(); }) {
    arrange();
    wireFields();
    wireButtons();
    Form_Load();
}

void frmSeguimiento::Form_Load() {
    oUtil_.Conexion(session_.Connection());
    oUtil_.ColorFoco(screen::colors::yellow);
    oUtil_.ColorNormal(screen::colors::white);
    setCaption("Seguimiento de Presupuestos");
    f_.Label1(10).setCaption(
        "VELMORA - Modulo de calculo presupuestario propiedad de :\r\nTalleres Bercial S.L.\r\n"
        "Desarrollado por Ondarel S.L. 2005 Versión nº " +
        platform::version());
    for (const std::string_view entry : data::filtrosHistorico) {
        f_.cboFiltroHistorico.addItem(entry);
    }
    f_.cboFiltroHistorico.setListIndex(onlyPending);
    f_.cboTipoPre.addItem(data::todosLosTipos);
    for (const data::ProductType& type : data::productTypes) {
        f_.cboTipoPre.addItem(type.name);
    }
    f_.cboTipoPre.setListIndex(0);
    // The form opens with an empty list; rows are listed on the user's request.
    std::int16_t flag = yes;
    std::string where;
    msCargarLista(flag, where);
}

void frmSeguimiento::wireFields() {
    f_.txtCriterio.on(&TextBox::onKeyPress,
                      {[this](int i, screen::KeyPress& key) { oUtil_.TeclaCampo(f_.txtCriterio(i), key, true); }});
    f_.txtCriterio.on(&TextBox::onGotFocus, {[this](int i) { txtCriterio_GotFocus(i); }});
    f_.txtCriterio.on(&TextBox::onLostFocus, {[this](int i) { txtCriterio_LostFocus(i); }});
    f_.Text1.on(&TextBox::onKeyPress,
                {[this](int i, screen::KeyPress& key) { oUtil_.TeclaCampo(f_.Text1(i), key, false); }});
    f_.Text1.on(&TextBox::onGotFocus, {[this](int i) { oUtil_.EntrarCampo(f_.Text1(i)); }});
    f_.Text1.on(&TextBox::onLostFocus, {[this](int i) { Text1_LostFocus(i); }});
    f_.txtPesu.on(&TextBox::onKeyPress, {[this](int i, screen::KeyPress& key) { detail_.txtPesu_KeyPress(i, key); }});
    f_.txtPesu.on(&TextBox::onGotFocus, {[this](int i) { detail_.txtPesu_GotFocus(i); }});
    f_.txtPesu.on(&TextBox::onLostFocus, {[this](int i) { detail_.txtPesu_LostFocus(i); }});
    f_.rsDpi.onMoveComplete = [this] { detail_.rsDpi_MoveComplete(); };
}

void frmSeguimiento::wireButtons() {
    onKeyDown = [this](screen::KeyDown& key) { Form_KeyDown(key); };
    f_.cmdfiltro.onClick = [this] { reload(); };
    f_.XPButton1.onClick = [this] { acceptance_.msAceptarPresupuesto(); };
    f_.XPButton2.onClick = [this] { opening_.XPButton2_Click(); };
    f_.XPButton3.onClick = [this] { unload(); };
    f_.XPButton4.onClick = [this] { searchByMeasures(); };
    f_.cmdExcel.onClick = [this] { cmdExcel_Click(f_, desk_); };
    f_.dbgDPI.onButtonClick = [this](int column) { opening_.dbgDPI_ButtonClick(column); };
    f_.dbgDPI.onKeyDown = [this](screen::KeyDown& key) { opening_.dbgDPI_KeyDown(key); };
}

void frmSeguimiento::msCargarLista(std::int16_t& flag, std::string& where) {
    list_.show(where.empty() ? filterCondition(f_, flag != 0 ? Listing::empty : Listing::filtered) : where);
}

void frmSeguimiento::reload() {
    std::int16_t flag = 0;
    std::string where;
    msCargarLista(flag, where);
}

void frmSeguimiento::searchByMeasures() {
    std::int16_t flag = 0;
    std::string where = measuresCondition(f_);
    msCargarLista(flag, where);
}

void frmSeguimiento::Form_KeyDown(screen::KeyDown& key) {
    if (key.key == screen::Key::escape) {
        unload();
        return;
    }
    if (key.key == screen::Key::enter && !tag().empty()) {
        // Kept K-129: the tag set by the public operation lets the first Return key through without moving the focus:
        // it is the key press that opened the form from the host's menu.
        setTag("");
        return;
    }
    passUsualKeys(key);
}

void frmSeguimiento::txtCriterio_GotFocus(int Index) {
    TextBox& box = f_.txtCriterio(Index);
    if (isDateCriterion(Index)) {
        // Only digits can be typed and parsed here, so the slashes are removed.
        box.setText(runtime::Replace(box.text(), "/", ""));
    }
    oUtil_.EntrarCampo(box);
}

void frmSeguimiento::txtCriterio_LostFocus(int Index) {
    if (isDateCriterion(Index)) {
        leaveDateField(oUtil_, f_.txtCriterio(Index));
    } else {
        oUtil_.SalirCampo(f_.txtCriterio(Index));
    }
}

void frmSeguimiento::Text1_LostFocus(int Index) {
    TextBox& box = f_.Text1(Index);
    if (!runtime::IsNumeric(box.text())) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box, "#0.00");
}

}  // namespace velmora::tracking
