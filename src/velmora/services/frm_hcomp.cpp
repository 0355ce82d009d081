#include "velmora/services/frm_hcomp.h"

#include <algorithm>
#include <array>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/purchase_price_mask.h"

namespace velmora::services {

namespace lay = screen::layout;

namespace {

constexpr int numberColumn = 3;
constexpr int lastDays = 90;

/// Columns and order of the lots for an article's formula.
struct Measures {
    std::int32_t formula;
    const char* column;
    const char* order;
};

constexpr Measures byQuantity{.formula = 0, .column = ",('Por Cantidad') as Medidas ", .order = ""};

constexpr std::array measures{
    Measures{.formula = 1,
             .column = ",(cast(lac_ancho as nvarchar) + ' X ' + cast(lac_espesor as nvarchar)) as Medidas ",
             .order = ", lac_ancho desc "},
    Measures{.formula = 2,
             .column = ",( 'Ø Ext: ' + cast(lac_Dexterior as nvarchar) + ' de ' + cast(lac_largo as nvarchar)) as "
                       "Medidas ",
             .order = " ,lac_Dexterior desc, lac_largo desc "},
    Measures{.formula = 3,
             .column = ",( 'de ' + cast(lac_Dexterior as nvarchar)) as Medidas ",
             .order = ",lac_Dexterior desc "},
    Measures{.formula = 4,
             .column = ",('Ø Ext: ' + cast(lac_dexterior as nvarchar) + ' , Ø Int: ' + cast(lac_dinterior as "
                       "nvarchar)) as Medidas ",
             .order = ",lac_dexterior desc , lac_dinterior desc "},
    Measures{.formula = 6,
             .column = ",('Ø Ext: ' + cast(lac_dexterior as nvarchar) + ' , Ø Int: ' + cast(lac_dinterior as "
                       "nvarchar)  + ' de ' + cast(lac_largo as nvarchar) ) as Medidas ",
             .order = ",lac_dexterior desc , lac_dinterior desc "},
};

const Measures& measuresOf(std::int32_t formula) {
    const auto* found = std::ranges::find(measures, formula, &Measures::formula);
    return found == measures.end() ? byQuantity : *found;
}

std::string textOf(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

}  // namespace

frmHcomp::frmHcomp(session::Session& session, platform::Desk& desk) : Form("frmHcomp"), session_(session), desk_(desk) {
    setCaption("Relación de ultimos precios de compra");
    arrange();
    shapeGrid();
    dbgCompras.onButtonClick = [this](int column) { dbgCompras_ButtonClick(column); };
    cmdSalir.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
}

void frmHcomp::arrange() {
    constexpr int codeWidth = 20;
    txtFields.forEach([](screen::TextBox& box) { box.setLocked(true); });
    txtFields(1).setAccessibleName("Descripción del articulo");
    dbgCompras.setAccessibleName("Ultimas compras");
    txtFields(0).setHint("Código del artículo");
    txtFields(1).setHint("Descripción del artículo");
    dbgCompras.setHint("Últimas compras del artículo; espacio en el albarán o doble clic lo abre");
    cmdSalir.setCaption("&Salir (ESC)");
    setLayout(
        lay::column(lay::row(lay::field("Articulo de Compras", txtFields(0), codeWidth).as(screen::Role::calculated),
                             lay::plain(txtFields(1)).as(screen::Role::calculated).stretched()),
                    lay::plain(dbgCompras).stretched(), lay::row(lay::space(), lay::plain(cmdSalir))));
    setTabOrder({&dbgCompras, &txtFields(0), &txtFields(1), &cmdSalir});
}

void frmHcomp::shapeGrid() {
    dbgCompras.setColumns({
        {.field = 0, .caption = "Fecha", .width = 1100, .mask = "dd/mm/yyyy", .right = true},
        {.field = 1, .caption = "Precio", .width = 1000, .mask = session::purchasePriceMask(session_), .right = true},
        {.field = 2, .caption = "Serie", .width = 1000},
        {.field = numberColumn, .caption = "Numero", .width = 1000, .button = true},
        {.field = 4, .caption = "Medidas", .width = 2200},
        {.field = 5, .caption = "CAC_ID", .visible = false},
    });
}

void frmHcomp::msArticulo(std::int32_t id) {
    const sql::Recordset article = session_.Connection().execute(
        "Select art_cod, art_des,art_for from art where art_id = " + runtime::CStr(std::int64_t{id}));
    const bool found = !article.eof();
    txtFields(0).setText(found ? textOf(article["art_cod"]) : "");
    txtFields(1).setText(found ? textOf(article["art_des"]) : "");
    nFormula = found && !article["art_for"].isNull() ? article["art_for"].toLong() : 0;
}

void frmHcomp::msCargar() {
    rsCompras_ = session_.Connection().execute(statement());
    dbgCompras.bind(rsCompras_);
    shapeGrid();
}

std::string frmHcomp::statement() const {
    const Measures& shown = measuresOf(nFormula);
    return std::string("select cac_fecha,lac_precio,cac_serie,cac_numero ") + shown.column +
           " ,CAC_ID from cac inner join pro on cac_idpro = pro_id "
           "inner join lac on cac_id = lac_idcac where lac_codart = '" +
           runtime::Replace(runtime::Trim(txtFields(0).text()), "'", "''") + "' " +
           " and datediff(day,cac_fecha,getdate()) <= " + runtime::CStr(std::int64_t{lastDays}) +
           " order by cac_fecha desc " + shown.order;
}

void frmHcomp::dbgCompras_ButtonClick(int column) {
    if (column != numberColumn) {
        return;
    }
    std::int32_t id = 0;
    runtime::ErrorTrap trap;
    trap([&] { id = rsCompras_["cac_id"].toLong(); });
    if (id <= 0) {
        return;
    }
    const auto notes = desk_.components.create<components::DeliveryNotes>("SORVEL.SORVELCOMP");
    notes->setMyBd(session_);
    notes->jLoad(id, true);
}

}  // namespace velmora::services
