#include "sample_form.h"

#include <cmath>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::testing {

namespace {

using namespace screen;
using namespace screen::layout;

constexpr double pi = 3.14159265358979;

Drawing sprocket() {
    Drawing drawing;
    Path face{.points = {}, .closed = true, .pen = Pen::outline, .fill = Fill::solid};
    constexpr int teeth = 17;
    for (int i = 0; i < teeth; ++i) {
        for (const auto& [turn, radius] : {std::pair{-0.27, 30.7}, {-0.12, 36.75}, {0.12, 36.75}, {0.27, 30.7}}) {
            const double angle = 2 * pi * (i + turn) / teeth;
            face.points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
        }
    }
    drawing.shapes.emplace_back(face);
    drawing.shapes.emplace_back(Circle{{0, 0}, 34.56, Pen::centre, Fill::none});
    drawing.shapes.emplace_back(Circle{{0, 0}, 24, Pen::thin, Fill::none});
    drawing.shapes.emplace_back(Circle{{0, 0}, 12, Pen::outline, Fill::blank});
    drawing.shapes.emplace_back(Path{.points = {{-42, 0}, {42, 0}}, .pen = Pen::centre});
    drawing.shapes.emplace_back(Path{.points = {{0, -42}, {0, 42}}, .pen = Pen::centre});
    const double x = 60;
    const auto section = [&](double side) {
        return Path{.points = {{x, 12 * side},
                               {x, 36.75 * side},
                               {x + 7, 36.75 * side},
                               {x + 7, 24 * side},
                               {x + 28, 24 * side},
                               {x + 28, 12 * side}},
                    .closed = true,
                    .fill = Fill::section};
    };
    drawing.shapes.emplace_back(section(1));
    drawing.shapes.emplace_back(section(-1));
    drawing.shapes.emplace_back(Path{.points = {{x, 12}, {x, -12}}, .pen = Pen::outline});
    drawing.shapes.emplace_back(Path{.points = {{x + 28, 12}, {x + 28, -12}}, .pen = Pen::outline});
    drawing.shapes.emplace_back(Path{.points = {{x - 6, 0}, {x + 34, 0}}, .pen = Pen::centre});
    drawing.shapes.emplace_back(Dimension{{x, -36.75}, {x, 36.75}, 9, 0});
    drawing.shapes.emplace_back(Dimension{{x + 28, 24}, {x + 28, -24}, 8, 1});
    drawing.shapes.emplace_back(Dimension{{x, 36.75}, {x + 7, 36.75}, 6, 2});
    drawing.shapes.emplace_back(Dimension{{x + 28, -24}, {x + 7, -24}, 21, 3});
    drawing.shapes.emplace_back(Dimension{{x + 28, -24}, {x, -36.75}, 0, 5});
    drawing.shapes.emplace_back(Dimension{{x + 28, -48}, {x, -48}, 5, 4});
    return drawing;
}

std::vector<GridColumn> historyColumns() {
    return {{.field = 0, .caption = "Propuesta", .width = 1100, .mask = "000000", .right = true},
            {.field = 1, .caption = "Fecha", .width = 1300, .mask = "dd/mm/yyyy"},
            {.field = 2, .caption = "Cliente", .width = 4200},
            {.field = 3, .caption = "Paso", .width = 900, .mask = "0.00", .right = true},
            {.field = 4, .caption = "Z", .width = 600, .right = true},
            {.field = 5, .caption = "Precio/ud.", .width = 1300, .mask = "#,##0.00", .right = true},
            {.field = 6, .caption = "Uds.", .width = 700, .right = true},
            {.field = 7, .caption = "Aceptado", .width = 1000, .mask = "Yes/No"},
            {.field = 8, .caption = "", .width = 700, .button = true}};
}

sql::Recordset historyRows() {
    std::vector<sql::Column> columns;
    for (const char* name : {"ID", "FECHA", "CLIENTE", "PASO", "Z", "PRECIO", "UDS", "ACEPTADO", "VER"}) {
        columns.push_back({name});
    }
    const std::vector<std::string> customers{"Talleres Ibáñez, S.L.", "Cementos del Nervión, S.A.",
                                             "Maquinaria Agrícola Peñafiel", "Aserradero La Encina",
                                             "Hijos de J. Müller y Cía., S.C."};
    std::vector<sql::Row> rows;
    for (int i = 0; i < 40; ++i) {
        rows.push_back({1240 - 7 * i, runtime::Date::of(2026, 1 + static_cast<unsigned>(i) % 12, 28),
                        customers[static_cast<unsigned>(i) % 5], 12.7, 17 + i % 9, 38.5 + 17.25 * i * (i % 4),
                        1 + i * 3 % 50, i % 3 == 0, "Ver"});
    }
    return sql::Recordset(sql::rowsInMemory(columns, rows));
}

void put(ControlArray<TextBox>& boxes, std::initializer_list<const char*> texts) {
    int i = 0;
    for (const char* text : texts) {
        boxes(i++).setText(text);
    }
}

}  // namespace

SampleForm::SampleForm() : Form("frmSample") {
    setCaption("Propuestas de Piñones Especiales ( v.12.10.5)");
    fill();
    arrange();
    wire();
}

void SampleForm::fill() {
    fraIdentity.setCaption("Propuesta");
    fraType.setCaption("Tipo y dentado");
    fraMeasures.setCaption("Medidas del piñon");
    fraOther.setCaption("Medidas Piñon Triple");
    fraSketch.setCaption("Croquis");
    fraMaterials.setCaption("Material del disco");
    fraHub.setCaption("Material del cubo");
    fraTotals.setCaption("Importes (€)");
    fraHistory.setCaption("Histórico de propuestas parecidas");
    fraOther.setVisible(false);
    rimCaption.setCaption("Llanta");
    coupling.setCaption("Acoplamiento");
    save.setCaption("&Grabar (F5)");
    print.setCaption("&Imprimir (F8)");
    duplicate.setCaption("&Duplicar (F6)");
    remove.setCaption("&Eliminar (F9)");
    labour.setCaption("&Mano de obra (F1)");
    documents.setCaption("D&ocumentos adjuntos");
    leave.setCaption("&Salir (ESC)");
    duplicate.setEnabled(false);
    for (const char* entry : {"Piñon Especial", "Disco Especial", "Piñon Especial 2 Cubos", "Polea Lisa"}) {
        type.addItem(entry);
    }
    for (const char* entry : {"Broca", "H7", "H5"}) {
        tool.addItem(entry);
    }
    for (const char* entry : {"001 - Acero F-1140 redondo", "002 - Chapa laminada S-275", "003 - Fundición GG-25"}) {
        discMaterial.addItem(entry);
        hubMaterial.addItem(entry);
    }
    for (const char* entry : {"Solo Aceptados", "Solo Pendientes", "Todos"}) {
        filter.addItem(entry);
    }
    type.setListIndex(0);
    tool.setListIndex(1);
    discMaterial.setListIndex(0);
    hubMaterial.setListIndex(1);
    filter.setListIndex(2);
    put(id, {"1045", "Cementos del Nervión, S.A.", "PED-2026/118", "001240", "15/01/2026", "", ""});
    put(measure, {"12,70", "17", "7,75", "69,12", "61,37", "0,00", "6,05", "24,00", "7,75", "7,00", "21,00", "0,00",
                  "8", "2", "0,00", "73,50", "48,00", "28,00"});
    put(label, {"Diametro exterior 73,50", "Diametro cubo 48,00", "LLanta 7,00", "Ancho 21,00", "Ancho total 28,00",
                "Ancho total 28", "Ancho 21,00"});
    put(disc, {"31,00", "76,00", "1,10", "1,85", "2,04", "3,20", "5,24", "0,00"});
    put(hub, {"0,00", "0,00", "0,00", "0,00", "0,00", "0,00", "0,00", "0,00"});
    put(total, {"5,24", "38,40", "0,00", "0,00", "43,64", "10,00", "48,00", "12", "1,50", "576,04"});
    label(5).setVisible(false);
    label(6).setVisible(false);
    for (const int calculated : {3, 4, 6, 15, 16, 17}) {
        measure(calculated).setEnabled(true);
    }
    for (const int shown : {3, 4, 5, 6}) {
        id(shown).setEnabled(false);
    }
    remarks.setMultiLine(true);
    remarks.setText("Dientes templados por inducción.\r\nEntregar con certificado de material.");
    sketch.setAccessibleName("Croquis de la pieza");
    history.setAccessibleName("Histórico de propuestas");
    history.setColumns(historyColumns());
    history.bind(historyRows());
    sketch.setSource(sprocket);
    for (int i = 0; i < 7; ++i) {
        sketch.place(i, label(i));
    }
    id.forEach([&](TextBox& box) { box.setFrame(&fraIdentity); });
    measure.forEach([&](TextBox& box) { box.setFrame(box.index() < 3 ? &fraType : &fraMeasures); });
    other.forEach([&](TextBox& box) { box.setFrame(&fraOther); });
    disc.forEach([&](TextBox& box) { box.setFrame(&fraMaterials); });
    hub.forEach([&](TextBox& box) { box.setFrame(&fraHub); });
}

void SampleForm::arrange() {
    const auto mm = [&](const char* caption, int index) {
        return field(caption, measure(index), 8).number().units("mm");
    };
    const auto calc = [&](const char* caption, int index) { return mm(caption, index).as(Role::calculated); };
    const auto money = [&](const char* caption, ControlArray<TextBox>& boxes, int index) {
        return field(caption, boxes(index), 9).number().units("€").as(Role::calculated);
    };
    const auto material = [&](ComboBox& list, ControlArray<TextBox>& boxes) {
        return column(
            field("Material", list),
            grid(2, field("Grueso", boxes(0), 8).number().units("mm"), money("Corte", boxes, 3),
                 field("Diámetro", boxes(1), 8).number().units("mm"), money("Precio kg", boxes, 4),
                 field("Peso", boxes(2), 8).number().units("kg").as(Role::calculated), money("Importe", boxes, 6)));
    };
    setLayout(column(
        group(fraIdentity, row(field("Codigo Cliente (F2)", id(0), 7), field("Nombre Cliente", id(1)),
                               field("Ref. Cliente", id(2), 16), field("Propuesta", id(3), 8),
                               field("Creado", id(4), 10), field("Orden :", id(5), 8), field("Aceptado", id(6), 10))),
        row(column(group(fraType, column(field("Tipo", type, 22), mm("Paso", 0), field("Z", measure(1), 8).number(),
                                         mm("Ø Rodillo", 2))),
                   takeTurns(
                       group(fraMeasures,
                             column(calc("Ø Primitivo", 3), calc("Ø Fondo", 4), calc("Ø Exterior", 15),
                                    calc("H - Altura", 6), mm("A.C.", 8),
                                    field(rimCaption, measure(9), 8).number().units("mm"), mm("Ancho cubo", 10),
                                    calc("Ø Cubo A", 16), calc("Ancho Total", 17), row(mm("Eje", 7), plain(tool, 6)),
                                    field("Chavetero de", measure(12), 8).number())),
                       group(fraOther, column(field("B1", other(0), 8).number(), field("B2", other(1), 8).number())))),
            group(fraSketch, plain(sketch)).stretched(),
            column(group(fraMaterials, material(discMaterial, disc)), group(fraHub, material(hubMaterial, hub)),
                   plain(coupling)),
            group(fraTotals,
                  column(money("Material", total, 0), money("Mano de obra", total, 1), money("Subcontratado", total, 2),
                         money("Varios", total, 3), money("Coste", total, 4),
                         field("Margen", total(5), 9).number().units("%"), money("Precio pieza", total, 6),
                         field("Unidades", total(7), 9).number(), field("Descuento", total(8), 9).number().units("%"),
                         space(), field("Total lote", total(9), 8).number().as(Role::total).above()))),
        field("Observaciones", remarks).tall(2),
        group(fraHistory, column(field("Mostrar", filter, 16), plain(history))).stretched(),
        row(plain(save), plain(print), plain(duplicate), plain(remove), plain(labour), plain(documents), space(),
            plain(leave))));
    std::vector<Control*> order{&id(0), &id(1), &id(2), &type};
    for (int i = 0; i < 18; ++i) {
        order.push_back(&measure(i));
    }
    order.insert(order.end(), {&discMaterial, &hubMaterial, &total(5), &total(7), &total(8), &remarks, &filter,
                               &history, &save, &print, &duplicate, &leave});
    setTabOrder(order);
}

void SampleForm::wire() {
    onKeyDown = [this](KeyDown& event) {
        if (event.key == Key::enter) {
            event.key = Key::none;
            tabForward();
        } else if (event.key == Key::escape) {
            event.key = Key::none;
            unload();
        } else if (event.key == Key::padDecimal) {
            event.key = Key::comma;
        }
    };
    paintFields();
    leave.onClick = [this] { unload(); };
    save.onClick = [this] { log.push_back("click save"); };
}

void SampleForm::paintFields() {
    for (Control* control : controls()) {
        auto* box = dynamic_cast<TextBox*>(control);
        if (box == nullptr) {
            continue;
        }
        box->onGotFocus = [this, box] {
            log.push_back("got " + box->fullName());
            box->setBackColor(colors::yellow);
            box->selectAll();
        };
        box->onLostFocus = [this, box] {
            log.push_back("lost " + box->fullName());
            box->setBackColor(colors::white);
        };
    }
}

}  // namespace velmora::testing
