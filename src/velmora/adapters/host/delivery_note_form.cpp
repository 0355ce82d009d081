#include "velmora/adapters/host/delivery_note_form.h"

#include <array>
#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/purchase_price_mask.h"

namespace velmora::host {

namespace lay = screen::layout;

namespace {

constexpr std::array noteFields{
    RecordField{.column = "CAC_IDPRO", .caption = "Proveedor", .width = 10, .mask = "#0"},
    RecordField{.column = "CAC_SERIE", .caption = "Serie", .width = 8},
    RecordField{.column = "CAC_NUMERO", .caption = "Numero", .width = 10, .mask = "#0"},
    RecordField{.column = "CAC_FECHA", .caption = "Fecha", .width = 12, .mask = "dd/mm/yyyy"},
};

std::vector<screen::GridColumn> lineColumns(const std::string& priceMask) {
    return {
        {.field = 0, .caption = "Articulo", .width = 1600},
        {.field = 1, .caption = "Descripción", .width = 3600},
        {.field = 2, .caption = "Ancho (mm)", .width = 1000, .mask = measureMask, .right = true},
        {.field = 3, .caption = "Espesor (mm)", .width = 1000, .mask = measureMask, .right = true},
        {.field = 4, .caption = "Ø Ext (mm)", .width = 1000, .mask = measureMask, .right = true},
        {.field = 5, .caption = "Ø Int (mm)", .width = 1000, .mask = measureMask, .right = true},
        {.field = 6, .caption = "Largo (mm)", .width = 1100, .mask = measureMask, .right = true},
        {.field = 7, .caption = "Precio (€)", .width = 1200, .mask = priceMask, .right = true},
    };
}

}  // namespace

DeliveryNoteForm::DeliveryNoteForm(session::Session& session) : Form("frmAlbaran"), session_(session) {
    setCaption("Albarán de Compra");
    arrange();
    cmdSalir_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
}

void DeliveryNoteForm::arrange() {
    fraAlbaran_.setCaption("Albarán");
    dbgLineas_.setAccessibleName("Lineas del albarán");
    dbgLineas_.setHint("Líneas del albarán");
    cmdSalir_.setCaption("&Salir (ESC)");
    screen::Layout head = recordRow(txtAlbaran_, noteFields, 0, 3);
    head.children.push_back(lay::space());
    setLayout(lay::column(lay::group(fraAlbaran_, std::move(head)), lay::plain(dbgLineas_).stretched(),
                          lay::row(lay::space(), lay::plain(cmdSalir_))));
    std::vector<screen::Control*> order;
    addTabStops(order, txtAlbaran_);
    order.insert(order.end(), {&dbgLineas_, &cmdSalir_});
    setTabOrder(std::move(order));
}

bool DeliveryNoteForm::load(std::int32_t id) {
    const sql::Recordset note = session_.Connection().execute("SELECT * FROM CAC where CAC_ID = " + numberText(id));
    if (!note.hasRows()) {
        return false;
    }
    showRecord(txtAlbaran_, noteFields, note);
    setCaption("Albarán de Compra " + txtAlbaran_(1).text() + " / " + txtAlbaran_(2).text());
    loadLines(id);
    return true;
}

void DeliveryNoteForm::loadLines(std::int32_t id) {
    // An article's code may occur twice in ART, a line must not. Differs D-273: nothing is summed: prices are per unit,
    // and a line does not hold its quantity.
    dbgLineas_.bind(session_.Connection().execute(
        "SELECT LAC_CODART,(select max(ART_DES) from ART where ART_COD = LAC_CODART) as Descripcion,LAC_ANCHO,"
        "LAC_ESPESOR,LAC_DEXTERIOR,LAC_DINTERIOR,LAC_LARGO,LAC_PRECIO FROM LAC where LAC_IDCAC = " +
        numberText(id)));
    dbgLineas_.setColumns(lineColumns(session::purchasePriceMask(session_)));
}

}  // namespace velmora::host
