// Layout of the main form: fixed captions, the arrangement, and the tab order.

#include <array>
#include <optional>

#include "velmora/estimate/product_drawing.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/proposal/field_names.h"
#include "velmora/proposal/frm_bercial_pinones.h"

namespace velmora::proposal {

using estimate::TextBox;
using screen::Layout;
using screen::Role;
namespace lay = screen::layout;

namespace {

// Widths in digits.
constexpr int measureWidth = 7;
constexpr int amountWidth = 8;
constexpr int formulaWidth = 8;
constexpr int dateWidth = 9;
constexpr int typeWidth = 26;
constexpr int chainWidth = 10;
constexpr int filterWidth = 18;

/// Shares of the height that a larger window leaves: the lines of toothing and bore stay about equally far apart.
constexpr int toothingShare = 2;
constexpr int boreShare = 1;
/// Shares of the width.
constexpr int notesShare = 2;
constexpr int historyShare = 7;

constexpr int measureDecimals = 2;  ///< of measures and amounts

Layout entered(std::string caption, TextBox& box, int width = measureWidth) {
    return lay::field(std::move(caption), box, width).number(measureDecimals);
}
Layout entered(estimate::Label& caption, TextBox& box, int width = measureWidth) {
    return lay::field(caption, box, width).number(measureDecimals);
}
Layout whole(std::string caption, TextBox& box, int width = measureWidth) {
    return lay::field(std::move(caption), box, width).number();
}
Layout calculated(std::string caption, TextBox& box, int width = measureWidth) {
    return lay::field(std::move(caption), box, width).number(measureDecimals).as(Role::calculated);
}
Layout calculated(estimate::Label& caption, TextBox& box, int width = measureWidth) {
    return lay::field(caption, box, width).number(measureDecimals).as(Role::calculated);
}
Layout shownKey(std::string caption, TextBox& box, int width) {
    return whole(std::move(caption), box, width).as(Role::calculated);
}

std::optional<double> measure(const TextBox& box) {
    return runtime::IsNumeric(box.text()) ? std::optional(runtime::CDbl(box.text())) : std::nullopt;
}

screen::Drawing drawing(const estimate::FieldMap& f) {
    const data::ProductShape shape = f.product().shape;
    const bool rack = shape == data::ProductShape::rack;
    const TextBox& coreHeight = shape == data::ProductShape::threeRims ? f.txtTriple(tripleSketch::hubHeight)
                                                                       : f.txtPDM(doubleSketch::hubHeight);
    return estimate::drawProduct(f.type(), {
                                               .teeth = measure(f.Text1(1)),
                                               .pitch = measure(f.Text1(rack ? 20 : 0)),
                                               .module = measure(f.Text1(19)),
                                               .exterior = measure(f.Text1(15)),
                                               .pitchDiameter = measure(f.Text1(3)),
                                               .root = measure(f.Text1(4)),
                                               .bore = measure(f.Text1(7)),
                                               .keyway = measure(f.Text1(12)),
                                               .hub = measure(f.Text1(16)),
                                               .hubWidth = measure(f.Text1(10)),
                                               .secondHub = measure(f.Text1(18)),
                                               .secondHubWidth = measure(f.Text1(14)),
                                               .rim = measure(f.Text1(9)),
                                               .totalWidth = measure(f.Text1(17)),
                                               .chainRim = measure(f.Text1(5)),
                                               .gap = measure(f.Text1(11)),
                                               .coreHeight = measure(coreHeight),
                                               .toothHeight = measure(f.Text1(21)),
                                               .height = measure(f.Text1(22)),
                                               .length = measure(f.Text1(24)),
                                               .width = measure(f.Text1(25)),
                                           });
}

void writeFixedCaptions(estimate::FieldMap& f, FormControls& c) {
    f.Label1(4).setCaption("Llanta");
    f.Label1(10).setCaption("Llanta (b1)");
    f.Label1(11).setCaption("Ø Rodillo");
    f.Label1(13).setCaption("Ancho cubo");
    f.Label1(16).setCaption("A.C.");
    f.Label1(17).setCaption("Ancho Total");
    f.Label1(20).setCaption("Ø Cubo A");
    f.Label1(34).setCaption("X Ancho Hueco");
    f.Label1(35).setCaption("Ancho cubo B");
    f.Label1(37).setCaption("Ø Cubo B");
    f.D(4).setCaption("Ø Interior");
    f.D(5).setCaption("Ø Interior");
    f.lblDiscoProceso.setCaption("Ancho Disco = Ancho Total + 3");
    f.lblCuboProceso.setCaption("Una sola pieza, sin cubo");
    f.chkAcopla.setCaption("Acoplamiento");
    f.chkFormulas.setCaption("Fórmula de cada artículo");
    f.chkFormulas.setChecked(true);
    f.cmdEng.setCaption("Engranaje…");
    // Chosen C-064: a stored tool that is not in the list is shown and kept by the next save.
    f.cboHerramienta.setStyle(estimate::ComboBox::Style::editable);
    f.txtObservaciones.setMultiLine(true);

    // Without a title: its fields are the first line of the form.
    c.fraPropuesta.setAccessibleName("Propuesta y cliente");
    c.fraDentado.setCaption("Dentado y medidas");
    c.fraEje.setCaption("Eje");
    c.fraImportes.setCaption("Importes (€)");
    c.fraNotas.setCaption("Notas");
    c.Frame1.setCaption("Historico de Presupuestos con Paso, Z y Ø igual al insertado");
    f.Frame2.setCaption("Medidas del piñon");
    f.fraPDM.setCaption("Medidas Piñon Doble");
    f.fraTriple.setCaption("Medidas Piñon Triple");
    f.fraDobleVar.setCaption("Medidas Piñon 2 Cubos Variables");
    f.fraCremallera.setCaption("Medidas Cremallera");
    f.fraCre1.setCaption("Cremallera");
    f.fraMatDisco.setCaption("Material del Disco");
    f.fraCubo.setCaption("Material del Cubo");
    f.fraMatCre.setCaption("Material de la Cremallera");

    c.cmdNueva.setCaption("&Nueva (Ctrl+N)");
    c.XPGrabar.setCaption("&Grabar (F5)");
    c.XPImprime.setCaption("&Imprimir (F8)");
    c.XPSalir.setCaption("&Salir (ESC)");
    c.cmdCambios.setCaption("Activar &Cambios");
    c.cmdManoObra.setCaption("(F1) Calcular MO");
    c.cmdDuplicar.setCaption("&Duplicar (F6)");
    c.cmdeliminarrPropuesta.setCaption("&Eliminar (F9)");
    c.XPButton1.setCaption("Valores Piñones Dobles");
    c.cmdDoc.setCaption("&Documentos adjuntos");
    c.cmdHPrecios.forEach([](Button& button) {
        button.setCaption("Precios");
        button.setToolTip("Ultimos precios de compra");
    });
    c.cmdPorque.setCaption("¿Por &qué? (F12)");
    c.cmdPorque.setToolTip("Cómo se ha calculado cada cifra, y el precio para otras cantidades");
    f.cboFiltroHistorico.setAccessibleName("Filtrar Historico por");
    c.dbgDPI.setAccessibleName("Historico de Presupuestos");
}

Layout identity(estimate::FieldMap& f, FormControls& c) {
    return lay::group(c.fraPropuesta,
                      lay::row(shownKey("Propuesta", f.txtPesu(3), 6), shownKey("Creado", f.txtPesu(4), dateWidth),
                               shownKey("Aceptado", f.txtPesu(13), dateWidth), shownKey("Orden :", f.txtPesu(6), 6),
                               lay::field("Codigo Cliente (F2)", f.txtPesu(0), 6).number(),
                               lay::field("Nombre Cliente", f.txtPesu(1)).stretched(2),
                               lay::field("Ref. Cliente", f.txtPesu(2)).stretched(1)));
}

Layout notes(estimate::FieldMap& f, FormControls& c) {
    return lay::group(c.fraNotas,
                      lay::column(lay::field("Observaciones", f.txtObservaciones).tall(3).above().stretched(),
                                  lay::field("Texto libre", f.txtExtra), lay::field("Prov.Consultado", f.txtCPro)));
}

Layout typeAndToothing(estimate::FieldMap& f, FormControls& c) {
    Layout plain =
        lay::grid(3,                                                                               //
                  entered("Paso", f.Text1(0)), calculated("Ø Primitivo", f.Text1(3)), lay::gap(),  //
                  whole("Z", f.Text1(1)), calculated("Ø Fondo", f.Text1(4)), lay::gap(),           //
                  lay::takeTurns(entered(f.Label1(16), f.Text1(8)), calculated(f.Label1(16), f.txtModulo)),
                  calculated("Ø Exterior", f.Text1(15)), lay::gap(),                                    //
                  entered(f.Label1(11), f.Text1(2)), calculated("H - Altura", f.Text1(6)), lay::gap(),  //
                  entered(f.Label1(4), f.Text1(9)), entered(f.Label1(20), f.Text1(16)),
                  lay::plain(f.lblFormulaDM, formulaWidth),  //
                  // The lines of a hub and of a second hub or rim are left out for pieces without.
                  lay::takeTurns(entered(f.Label1(13), f.Text1(10))).collapsing(),
                  lay::takeTurns(entered(f.Label1(17), f.Text1(17))).collapsing(),
                  lay::takeTurns(lay::plain(f.lblFormulaAncho, formulaWidth).with(f.Text1(17))).collapsing(),  //
                  lay::takeTurns(entered(f.Label1(35), f.Text1(14)), entered(f.Label1(10), f.Text1(5))).collapsing(),
                  lay::takeTurns(entered(f.Label1(37), f.Text1(18)), entered(f.Label1(34), f.Text1(11))).collapsing(),
                  lay::gap())
            .spreadOut();
    Layout rack = lay::grid(2,                                                                //
                            entered("Modulo", f.Text1(19)), calculated("Paso", f.Text1(20)),  //
                            entered("H", f.Text1(22)), calculated("h", f.Text1(21)),          //
                            entered("L", f.Text1(24)), calculated("A", f.Text1(23)),          //
                            entered("B", f.Text1(25)), lay::gap())
                      .spreadOut();
    Layout bore = lay::grid(1, lay::row(entered("Eje", f.Text1(7)), whole("Chavetero de", f.Text1(12)), lay::space()),
                            lay::row(whole("Nº Prisioneros", f.Text1(13)), lay::plain(f.chkAcopla), lay::space()),
                            lay::row(lay::field("Herramienta para el Eje :", f.cboHerramienta, 10), lay::space()))
                      .spreadOut();
    return lay::column(
        lay::row(lay::field("Tipo", f.cboTipoPre, typeWidth),
                 lay::takeTurns(lay::field("Cadena", f.cboDobles, chainWidth),
                                lay::row(lay::plain(f.cmdEng), lay::space()))),
        lay::takeTurns(lay::group(f.fraCre1, std::move(rack)), lay::group(c.fraDentado, std::move(plain)))
            .stretched(toothingShare),
        lay::group(c.fraEje, std::move(bore)).stretched(boreShare));
}

/// The drawing with the value labels of an array at the places with the same indexes.
Layout picture(estimate::FieldMap& f, screen::Sketch& sketch, const screen::ControlArray<TextBox>& labels) {
    sketch.setSource([&f] { return drawing(f); });
    sketch.setAccessibleName("Dibujo de la pieza");
    labels.forEach([&sketch](TextBox& box) { sketch.place(box.index(), box); });
    return lay::plain(sketch);
}

/// Accessible names of the value labels, which show only numbers on the drawing.
template <std::size_t N>
void nameLabels(const screen::ControlArray<TextBox>& labels, const std::array<const char*, N>& names) {
    for (std::size_t i = 0; i < N; ++i) {
        labels(static_cast<int>(i)).setAccessibleName(names[i]);
    }
}

constexpr std::array doubleNames{"Ø Exterior", "Ø Cubo",      "Altura al cubo", "Ancho total",  "Llanta (B2)",
                                 "Ancho cubo", "Llanta (b1)", "X Ancho Hueco",  "Llanta (b1) 2"};
constexpr std::array tripleNames{"Ø Exterior",    "Ø Cubo",        "Altura al cubo",  "Llanta (b1)",
                                 "X Ancho Hueco", "Llanta (b1) 2", "X Ancho Hueco 2", "Llanta (b1) 3",
                                 "Ancho cubo",    "Llanta (B3)",   "Ancho total"};
constexpr std::array variableNames{"Ancho total", "Ancho cubo A", "Llanta",    "Ancho cubo B",
                                   "Ø Cubo B",    "Ø Cubo A",     "Ø Exterior"};
constexpr std::array rackNames{"h", "H", "A", "L", "H grosor", "B"};

Layout pictures(estimate::FieldMap& f) {
    nameLabels(f.txtPDM, doubleNames);
    nameLabels(f.txtTriple, tripleNames);
    nameLabels(f.txtDCV, variableNames);
    nameLabels(f.txtCre, rackNames);
    return lay::takeTurns(lay::group(f.fraCremallera, picture(f, f.picCremallera, f.txtCre)),
                          lay::group(f.fraTriple, picture(f, f.picTriple, f.txtTriple)),
                          lay::group(f.fraDobleVar, picture(f, f.picVariable, f.txtDCV)),
                          lay::group(f.fraPDM, picture(f, f.picDoble, f.txtPDM)),
                          lay::group(f.Frame2, picture(f, f.sketch, f.Text3)))
        .stretched(3);
}

struct MaterialFields {
    estimate::Frame& frame;
    estimate::ComboBox& list;
    Button& prices;
    Layout sizes;
};

Layout material(MaterialFields m) {
    return lay::group(m.frame, lay::column(lay::row(lay::field("Material", m.list).stretched(), lay::plain(m.prices)),
                                           std::move(m.sizes).spreadOut().stretched()))
        .stretched();
}

Layout materials(estimate::FieldMap& f, FormControls& c) {
    const auto amount = [](std::string caption, TextBox& box) { return entered(std::move(caption), box, amountWidth); };
    Layout disc = lay::grid(2, entered("Ø", f.Text4(1)), amount("Precio Coste", f.txtPesu(20)),   //
                            entered("Ancho", f.Text4(0)), amount("Precio Venta", f.txtPesu(21)),  //
                            entered(f.D(4), f.Text4(6)), amount("Corte", f.txtPesu(16)),          //
                            entered("Peso", f.Text4(4)), amount("Importe", f.txtPesu(22)));
    Layout hub = lay::grid(2, entered("Ø", f.Text4(2)), amount("Precio Coste", f.txtPesu(23)),   //
                           entered("Ancho", f.Text4(3)), amount("Precio Venta", f.txtPesu(24)),  //
                           entered(f.D(5), f.Text4(7)), amount("Corte", f.txtPesu(15)),          //
                           entered("Peso Valor", f.Text4(5)), amount("Importe", f.txtPesu(25)));
    Layout rack = lay::grid(2, entered("Largo", f.Text4(50)), amount("Precio Coste", f.txtPesu(54)),  //
                            entered("Ancho", f.Text4(51)), amount("Precio Venta", f.txtPesu(56)),     //
                            entered("Grosor", f.Text4(52)), amount("Corte", f.txtPesu(55)),           //
                            entered("Peso Valor", f.Text4(53)), amount("Importe", f.txtPesu(57)));
    // A rack's material and a disc without hub leave the place of the other material empty.
    Layout ofRack = lay::column(material({f.fraMatCre, f.cboMatCre, c.cmdHPrecios(2), std::move(rack)}), lay::space());
    Layout ofSprocket =
        lay::column(material({f.fraMatDisco, f.cboMatDisco, c.cmdHPrecios(0), std::move(disc)}),
                    lay::takeTurns(lay::row(lay::plain(f.lblDiscoProceso), lay::space(), lay::plain(f.lblCuboProceso)))
                        .collapsing(),
                    lay::takeTurns(material({f.fraCubo, f.cboMatCubo, c.cmdHPrecios(1), std::move(hub)})).stretched());
    return lay::column(lay::takeTurns(std::move(ofRack), std::move(ofSprocket)).stretched());
}

Layout amounts(estimate::FieldMap& f, FormControls& c) {
    const auto amount = [](std::string caption, TextBox& box) { return entered(std::move(caption), box, amountWidth); };
    return lay::group(
        c.fraImportes,
        lay::column(
            lay::grid(1, amount("Importe Material", f.txtPesu(7)), amount("Mano Obra", f.txtPesu(8)),
                      amount("Subcontratados", f.txtPesu(9)), amount("Varios", f.txtPesu(5)),
                      amount("Fijo Sierra", f.txtPesu(14)), amount("Total Pieza", f.txtPesu(10)),
                      whole("Nº de Piezas", f.txtPesu(11), amountWidth)),
            lay::space(), lay::row(lay::space(), lay::plain(c.cmdPorque)),
            lay::field("Importe Total", f.txtPesu(12)).number(measureDecimals).as(Role::total).units("€").above()));
}

Layout history(estimate::FieldMap& f, FormControls& c) {
    return lay::group(c.Frame1, lay::plain(c.dbgDPI))
        .headedBy(lay::field("  Filtrar Historico por:", f.cboFiltroHistorico, filterWidth));
}

Layout buttons(FormControls& c) {
    return lay::row(lay::plain(c.cmdNueva), lay::plain(c.XPGrabar), lay::plain(c.cmdManoObra), lay::plain(c.XPImprime),
                    lay::plain(c.cmdCambios), lay::plain(c.cmdDuplicar), lay::plain(c.cmdeliminarrPropuesta),
                    lay::plain(c.cmdDoc), lay::plain(c.XPButton1), lay::space(), lay::plain(c.XPSalir));
}

/// The tab order: customer, type, toothing, widths, bore, materials, cuts, labour, units, remarks.
std::vector<screen::Control*> orderOfWork(estimate::FieldMap& f, FormControls& c) {
    std::vector<screen::Control*> order;
    const auto add = [&](std::initializer_list<screen::Control*> controls) { order.insert(order.end(), controls); };
    const auto addBoxes = [&](const screen::ControlArray<TextBox>& boxes, std::initializer_list<int> indexes) {
        for (const int i : indexes) {
            order.push_back(&boxes(i));
        }
    };
    addBoxes(f.txtPesu, {0, 1, 2});
    add({&f.cboTipoPre, &f.cmdEng, &f.cboDobles});
    addBoxes(f.Text1, {0, 1, 8, 2, 3, 4, 15, 6, 10, 14, 5, 11, 16, 18, 17, 19, 22, 24, 25, 7, 12, 13});
    add({&f.chkAcopla, &f.cboHerramienta, &f.Text1(measure::rim), &f.cboMatDisco});
    addBoxes(f.Text4, {1, 0, 6, 4});
    addBoxes(f.txtPesu, {20, 21, 16, 22});
    add({&f.cboMatCubo});
    addBoxes(f.Text4, {2, 3, 7, 5});
    addBoxes(f.txtPesu, {23, 24, 15, 25});
    add({&f.cboMatCre});
    addBoxes(f.Text4, {50, 51, 52, 53});
    addBoxes(f.txtPesu, {54, 56, 55, 57});
    addBoxes(f.txtPesu, {7, 8, 9, 5, 14, 10, 11, 12});
    add({&f.chkFormulas, &f.txtObservaciones, &f.txtExtra, &f.txtCPro, &f.cboFiltroHistorico, &c.dbgDPI, &c.cmdNueva,
         &c.XPGrabar, &c.cmdManoObra, &c.XPImprime, &c.cmdCambios, &c.cmdDuplicar, &c.cmdeliminarrPropuesta, &c.cmdDoc,
         &c.XPButton1, &c.XPSalir});
    // After the buttons of the last line, so that they do not interrupt typing.
    c.cmdHPrecios.forEach([&order](Button& button) { order.push_back(&button); });
    order.push_back(&c.cmdPorque);
    return order;
}

void lockIdentity(estimate::FieldMap& f) {
    // Differs D-066: number, dates and order are locked for typing in every state: a save overwrites, and a deletion
    // deletes, the proposal with the displayed number.
    for (const int i : {3, 4, 6, 13}) {
        f.txtPesu(i).setLocked(true);
    }
}

}  // namespace

void frmBercialPiñones::arrange() {
    writeFixedCaptions(f_, controls_);
    Layout weight = lay::row(calculated("Peso Aprox. del Piñon", f_.txtPesu(17), amountWidth),
                             lay::plain(f_.lblFormulaPeso).stretched(), lay::plain(f_.chkFormulas));
    setLayout(lay::column(
        identity(f_, controls_),
        lay::row(typeAndToothing(f_, controls_), pictures(f_), materials(f_, controls_), amounts(f_, controls_))
            .stretched(),
        std::move(weight),
        lay::row(notes(f_, controls_).stretched(notesShare), history(f_, controls_).stretched(historyShare))
            .stretched(),
        buttons(controls_)));
    setTabOrder(orderOfWork(f_, controls_));
    tabStops_.followType();
    lockIdentity(f_);
}

}  // namespace velmora::proposal
