// Layout of the tracking form: fixed captions, the arrangement, and the tab order.

#include "velmora/tracking/frm_seguimiento.h"

namespace velmora::tracking {

using screen::Layout;
using screen::Role;
namespace lay = screen::layout;

namespace {

// Widths in digits.
constexpr int codeWidth = 7;
constexpr int dateWidth = 10;
constexpr int measureWidth = 7;
constexpr int amountWidth = 10;
constexpr int typeWidth = 27;

constexpr int listLines = 16;       ///< of the window as it opens
constexpr int trackedDecimals = 2;  ///< of measures and amounts

void writeFixedCaptions(TrackingFields& f) {
    f.fraFiltros.setCaption("Filtros");
    f.chkAcopla.setCaption("Acoplamiento");
    f.cmdfiltro.setCaption("&Ejecutar Filtro");
    f.fraMedidas.setCaption("Buscar Propuestas por medidas");
    f.XPButton4.setCaption("&Buscar Propuestas");
    f.fraDatos.setCaption("Datos del Presupuesto");
    f.XPButton1.setCaption("&Presupuesto Aceptado");
    f.XPButton2.setCaption("&Ver Orden de Trabajo");
    f.XPButton3.setCaption("&Salir (ESC)");
    f.cmdExcel.setCaption("Exportar a excel");
    f.lblTeclas.setCaption("En la lista: F8 ver propuesta, F9 ver orden");
    f.dbgDPI.setAccessibleName("Lista de presupuestos");
    f.Label1(10).setAccessibleName("Acerca del programa");
}

void writeHints(TrackingFields& f) {
    f.txtCriterio(customerFrom).setHint("Código de cliente: con los dos, de uno a otro; con uno solo, ese");
    f.txtCriterio(customerTo).setHint("Código de cliente: con los dos, de uno a otro; con uno solo, ese");
    f.txtCriterio(dateFrom).setHint("Fecha, día/mes/año: con las dos, de una a otra; con una sola, ese día");
    f.txtCriterio(dateTo).setHint("Fecha, día/mes/año: con las dos, de una a otra; con una sola, ese día");
    f.txtCriterio(numberFrom).setHint("Número de propuesta: con los dos, de uno a otro; con uno solo, esa");
    f.txtCriterio(numberTo).setHint("Número de propuesta: con los dos, de uno a otro; con uno solo, esa");
    f.cboTipoPre.setHint("Tipo de pieza de las propuestas de la lista");
    f.cboFiltroHistorico.setHint("Propuestas aceptadas, pendientes o todas");
    f.chkAcopla.setHint("Espacio la marca: solo propuestas con acoplamiento");
    f.Text1(1).setHint("Número de dientes que se busca; 0 o vacío: cualquiera");
    f.Text1(0).setHint("Paso que se busca, en mm; 0 o vacío: cualquiera");
    f.Text1(8).setHint("Ancho interior de la cadena que se busca, en mm; 0 o vacío: cualquiera");
    f.Text1(2).setHint("Diámetro del rodillo que se busca, en mm; 0 o vacío: cualquiera");
    f.Text1(3).setHint("Módulo que se busca, en mm; 0 o vacío: cualquiera");
    f.Text1(7).setHint("Diámetro del eje que se busca, en mm; 0 o vacío: cualquiera");
    f.dbgDPI.setHint("Propuestas de la lista; F8 ve la propuesta, F9 su orden de trabajo");
    f.txtPesu(customerReference).setHint("Referencia o número de plano del cliente");
    f.txtPesu(customerOrder).setHint("Número de pedido del cliente, que pasa a la orden");
    f.txtPesu(orderDate).setHint("Fecha del pedido, día/mes/año");
    f.txtPesu(deliveryDate).setHint("Fecha de entrega, día/mes/año");
    f.txtPesu(pieces).setHint("Número de piezas que el cliente pide");
}

// Differs D-480: each limit of a pair has its caption before its own box, instead of both captions before the first.
Layout limit(std::string caption, screen::TextBox& box) {
    box.setAccessibleName(caption);
    return lay::field(std::move(caption), box, dateWidth);
}

Layout filters(TrackingFields& f) {
    return lay::group(f.fraFiltros,
                      lay::grid(3,  //
                                limit("De Cliente", f.txtCriterio(customerFrom)).number(),
                                limit("a Cliente", f.txtCriterio(customerTo)).number(),
                                lay::field("Tipo de Propuesta", f.cboTipoPre, typeWidth),  //
                                limit("De Fecha", f.txtCriterio(dateFrom)), limit("a Fecha", f.txtCriterio(dateTo)),
                                lay::field("  Filtrar Historico por:", f.cboFiltroHistorico, typeWidth),  //
                                limit("De Numero", f.txtCriterio(numberFrom)).number(),
                                limit("a Numero", f.txtCriterio(numberTo)).number(),
                                lay::row(lay::plain(f.chkAcopla), lay::space(), lay::plain(f.cmdfiltro))));
}

Layout measure(std::string caption, screen::TextBox& box, std::string unit = {}) {
    return lay::field(std::move(caption), box, measureWidth).number(trackedDecimals).units(std::move(unit));
}

Layout measureSearch(TrackingFields& f) {
    return lay::group(f.fraMedidas,
                      lay::column(lay::grid(3,  //
                                            lay::field("Z", f.Text1(1), measureWidth).number(),
                                            measure("Paso", f.Text1(0), "mm"), measure("A.C.", f.Text1(8), "mm"),  //
                                            measure("Ø Rodillo", f.Text1(2), "mm"), measure("Modulo", f.Text1(3), "mm"),
                                            measure("Eje", f.Text1(7), "mm")),
                                  lay::row(lay::space(), lay::plain(f.XPButton4))));
}

Layout text(std::string caption, screen::TextBox& box, int width = 0) {
    return lay::field(std::move(caption), box, width).above();
}

Layout amount(std::string caption, screen::TextBox& box) {
    return lay::field(std::move(caption), box, amountWidth)
        .number(trackedDecimals)
        .units("€")
        .as(Role::calculated)
        .above();
}

Layout detail(TrackingFields& f) {
    return lay::group(
        f.fraDatos,
        lay::column(lay::row(text("Codigo Cliente", f.txtPesu(customerCode), codeWidth).number().as(Role::calculated),
                             text("Nombre Cliente", f.txtPesu(customerName)).as(Role::calculated).stretched(4),
                             text("Ref. Cliente", f.txtPesu(customerReference)).stretched(2),
                             text("Pedido. Cliente", f.txtPesu(customerOrder)).stretched(2),
                             text("Fecha Pedido", f.txtPesu(orderDate), dateWidth),
                             text("Fecha Entrega", f.txtPesu(deliveryDate), dateWidth)),
                    lay::row(amount("Importe Material", f.txtPesu(materialAmount)),
                             amount("Mano Obra", f.txtPesu(labourAmount)),
                             amount("Subcontratados", f.txtPesu(subcontractedAmount)),
                             amount("Varios", f.txtPesu(otherAmount)), amount("Total Pieza", f.txtPesu(piecePrice)),
                             text("Nº de Piezas", f.txtPesu(pieces), codeWidth).number(),
                             amount("Importe Total", f.txtPesu(totalAmount)), lay::space())));
}

Layout buttons(TrackingFields& f) {
    return lay::row(lay::plain(f.XPButton1), lay::plain(f.XPButton2), lay::plain(f.cmdExcel), lay::plain(f.lblTeclas),
                    lay::space(), lay::plain(f.Label1(10)), lay::plain(f.XPButton3));
}

std::vector<screen::Control*> orderOfWork(TrackingFields& f) {
    std::vector<screen::Control*> order;
    f.txtCriterio.forEach([&](screen::TextBox& box) { order.push_back(&box); });
    order.insert(order.end(), {&f.cboTipoPre, &f.cboFiltroHistorico, &f.chkAcopla, &f.cmdfiltro});
    for (const int i : {1, 0, 8, 2, 3, 7}) {
        order.push_back(&f.Text1(i));
    }
    order.insert(order.end(), {&f.XPButton4, &f.dbgDPI});
    f.txtPesu.forEach([&](screen::TextBox& box) { order.push_back(&box); });
    order.insert(order.end(), {&f.XPButton1, &f.XPButton2, &f.cmdExcel, &f.XPButton3});
    return order;
}

// Chosen C-122: Tab goes from the list to the fields typed for an order, the customer's references and the number of
// pieces; the other fields of the panel are reached with the mouse.
void passOverWhatIsShown(TrackingFields& f) {
    for (const Detail shown : {customerCode, customerName, materialAmount, labourAmount, subcontractedAmount,
                               otherAmount, piecePrice, totalAmount}) {
        f.txtPesu(shown).setTabStop(false);
    }
}

}  // namespace

void frmSeguimiento::arrange() {
    writeFixedCaptions(f_);
    writeHints(f_);
    setLayout(lay::column(lay::row(filters(f_), measureSearch(f_), lay::space()),
                          lay::plain(f_.dbgDPI).tall(listLines).stretched(), detail(f_), buttons(f_)));
    setTabOrder(orderOfWork(f_));
    passOverWhatIsShown(f_);
}

}  // namespace velmora::tracking
