#include "velmora/adapters/host/work_order_form.h"

#include <array>
#include <string>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::host {

namespace lay = screen::layout;

namespace {

constexpr const char* day = "dd/mm/yyyy";
constexpr const char* whole = "#0";
constexpr const char* money = "#,##0.00";

constexpr std::array orderFields{
    RecordField{.column = "ORDEN_NUM", .caption = "Orden nº", .width = 8, .mask = whole},
    RecordField{.column = "ORDEN_SER", .caption = "Serie", .width = 5},
    RecordField{.column = "ORDEN_INI", .caption = "Fecha", .width = 10, .mask = day},
    RecordField{.column = "ORDEN_PLA", .caption = "Fecha Entrega", .width = 10, .mask = day},
    RecordField{.column = "ORDEN_IdDPI", .caption = "Propuesta", .width = 8, .mask = "000000"},
    RecordField{.column = "ORDEN_CLI", .caption = "Cliente", .width = 8, .mask = whole},
    RecordField{.column = "ORDEN_NOM", .caption = "Nombre Cliente"},
    RecordField{.column = "ORDEN_UNI", .caption = "Nº de Piezas", .width = 8, .mask = whole},
    RecordField{.column = "ORDEN_PRE", .caption = "Precio Pieza", .width = 10, .mask = money, .unit = "€"},
    RecordField{.column = "ORDEN_GF", .caption = "Gtos. Financieros", .width = 8, .mask = "0.00", .unit = "%"},
    RecordField{.column = "ORDEN_DES", .caption = "Descripción"},
    RecordField{.column = "ORDEN_REF", .caption = "Ref. Cliente", .width = 20},
    RecordField{.column = "ORDEN_PED", .caption = "Pedido. Cliente", .width = 20},
    RecordField{.column = "ORDEN_ART", .caption = "Articulo", .width = 16},
    RecordField{.column = "ORDEN_ADE", .caption = "Descripción del Articulo"},
    RecordField{.column = "ORDEN_OBS", .caption = "Observaciones"},
};

constexpr int measureWidth = 8;

constexpr RecordField measured(const char* column, const char* caption) {
    return {.column = column, .caption = caption, .width = measureWidth, .mask = measureMask};
}

constexpr std::array sprocketFields{
    measured("Opi_Pas", "Paso"),
    RecordField{.column = "Opi_Die", .caption = "Z", .width = measureWidth, .mask = whole},
    measured("Opi_Rod", "Ø Rodillo"),
    measured("Opi_Anca", "A.C."),
    measured("Opi_Eje", "Eje"),
    measured("Opi_Chav", "Chavetero de"),
    RecordField{.column = "Opi_Pri", .caption = "Nº Prisioneros", .width = measureWidth, .mask = whole},
    measured("Opi_DmPri", "Ø Primitivo"),
    measured("Opi_DmFon", "Ø Fondo"),
    measured("Opi_DmExt", "Ø Exterior"),
    measured("Opi_DmCub", "Ø Cubo"),
    measured("Opi_Alt", "H - Altura"),
    measured("Opi_Ancto", "Ancho Total"),
    measured("Opi_Llanta", "Llanta"),
    measured("Opi_Anccu", "Ancho cubo"),
    measured("Opi_Disdm", "Corte Disco Ø"),
    measured("Opi_DisGr", "Corte Disco Ancho"),
    measured("Opi_PesoDis", "Peso Disco (kg)"),
    measured("Opi_Cubdm", "Corte Cubo Ø"),
    measured("Opi_CubGr", "Corte Cubo Ancho"),
    measured("Opi_PesoCub", "Peso Cubo (kg)"),
};

std::vector<screen::GridColumn> materialColumns() {
    return {
        {.field = 0, .caption = "Articulo", .width = 1500},
        {.field = 1, .caption = "Descripción", .width = 3200},
        {.field = 2, .caption = "Ø Ext", .width = 900, .mask = measureMask, .right = true},
        {.field = 3, .caption = "Ø Int", .width = 900, .mask = measureMask, .right = true},
        {.field = 4, .caption = "Ancho", .width = 900, .mask = measureMask, .right = true},
        {.field = 5, .caption = "Espesor", .width = 900, .mask = measureMask, .right = true},
        {.field = 6, .caption = "Largo", .width = 1000, .mask = measureMask, .right = true},
        {.field = 7, .caption = "Piezas", .width = 800, .right = true},
        {.field = 8, .caption = "Cortes", .width = 800, .mask = whole, .right = true},
        {.field = 9, .caption = "Ø Corte", .width = 900, .mask = measureMask, .right = true},
        {.field = 10, .caption = "Largo Corte", .width = 1100, .mask = measureMask, .right = true},
    };
}

std::vector<screen::GridColumn> routeColumns() {
    return {
        {.field = 0, .caption = "Pos.", .width = 600, .right = true},
        {.field = 1, .caption = "Maquina", .width = 900, .right = true},
        {.field = 2, .caption = "Descripción", .width = 2600},
        {.field = 3, .caption = "Horas", .width = 900, .mask = "#,##0.00", .right = true},
        {.field = 4, .caption = "Cola", .width = 700, .right = true},
    };
}

screen::Layout sprocket(const Boxes& boxes) {
    screen::Layout grid{.kind = screen::Layout::Kind::grid, .columns = 7};
    for (int i = 0; i < static_cast<int>(sprocketFields.size()); ++i) {
        grid.children.push_back(recordField(boxes, sprocketFields, i));
    }
    return grid;
}

}  // namespace

WorkOrderForm::WorkOrderForm(sql::Connection& connection) : Form("frmOrden"), connection_(connection) {
    setCaption("Orden de Trabajo");
    arrange();
    cmdSalir_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
}

void WorkOrderForm::arrange() {
    fraOrden_.setCaption("Orden");
    fraPiñon_.setCaption("Datos del piñon (mm)");
    fraMaterial_.setCaption("Material (mm)");
    fraRuta_.setCaption("Ruta");
    dbgMaterial_.setAccessibleName("Material de la orden");
    dbgRuta_.setAccessibleName("Ruta de la orden");
    dbgMaterial_.setHint("Material de la orden con sus cortes");
    dbgRuta_.setHint("Ruta de la orden por las máquinas");
    cmdSalir_.setCaption("&Salir (ESC)");
    const auto row = [this](int from, int to) { return recordRow(txtOrden_, orderFields, from, to); };
    setLayout(lay::column(
        lay::group(fraOrden_, lay::column(row(0, 6), row(7, 10), row(11, 14), row(15, 15))),
        lay::row(lay::group(fraPiñon_, sprocket(txtPiñon_)), lay::group(fraRuta_, lay::plain(dbgRuta_)).stretched()),
        lay::group(fraMaterial_, lay::plain(dbgMaterial_)).stretched(), lay::row(lay::space(), lay::plain(cmdSalir_))));
    std::vector<screen::Control*> order;
    addTabStops(order, txtOrden_);
    addTabStops(order, txtPiñon_);
    order.insert(order.end(), {&dbgRuta_, &dbgMaterial_, &cmdSalir_});
    setTabOrder(std::move(order));
}

bool WorkOrderForm::load(std::int32_t number) {
    const sql::Recordset order = connection_.execute("SELECT * FROM ORDEN where ORDEN_NUM = " + numberText(number));
    if (!order.hasRows()) {
        return false;
    }
    showRecord(txtOrden_, orderFields, order);
    setCaption("Orden de Trabajo nº " + numberText(number));
    const std::int32_t id = order["ORDEN_ID"].toLong();
    loadMeasures(id);
    loadMaterial(number);
    loadRoute(id);
    return true;
}

void WorkOrderForm::loadMeasures(std::int32_t order) {
    const sql::Recordset measures =
        connection_.execute("SELECT * FROM OrdPiñones where Opi_OrdId = " + numberText(order));
    showRecord(txtPiñon_, sprocketFields, measures);
    fraPiñon_.setVisible(measures.hasRows());
}

void WorkOrderForm::loadMaterial(std::int32_t number) {
    dbgMaterial_.bind(
        connection_.execute("SELECT Mat_Art,Mat_Des,Mat_Dex,Mat_Din,Mat_Anc,Mat_Esp,Mat_Lar,Mat_Uni,MAT_UdCorte,"
                            "MAT_DmCorte,MAT_LargoCorte FROM Mat where Mat_Ord = " +
                            numberText(number)));
    dbgMaterial_.setColumns(materialColumns());
}

void WorkOrderForm::loadRoute(std::int32_t order) {
    dbgRuta_.bind(
        connection_.execute("SELECT RUT_pos,RUT_Maq,MAQ_NOM,RUT_Estimado,RUT_Mpos FROM RUT left join MAQ on RUT_Maq = "
                            "MAQ_ID where RUT_IdOrden = " +
                            numberText(order) + " order by RUT_pos"));
    dbgRuta_.setColumns(routeColumns());
}

}  // namespace velmora::host
