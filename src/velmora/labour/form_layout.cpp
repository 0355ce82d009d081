// Layout of the labour form: fixed captions, the arrangement, and the tab order.

#include "velmora/labour/frm_mano_obra.h"

namespace velmora::labour {

using screen::Layout;
using screen::Role;
namespace lay = screen::layout;

namespace {

// Widths in digits.
constexpr int keyWidth = 7;
constexpr int numberWidth = 10;

constexpr int lineDecimals = 2;  ///< of minutes and amounts

void writeFixedCaptions(LineFields& f) {
    f.cmdNuevaLinea.setCaption("Nueva Linea");
    f.cmdEditarLinea.setCaption("Editar Linea");
    f.cmdEliminarLinea.setCaption("Eliminar Linea");
    f.cmdBuscarMaquina.setCaption("Buscar Maquina (F2)");
    f.cmdGrabarLinea.setCaption("Grabar Linea");
    f.cmdCancelar.setCaption("Cancelar");
    f.cmdSalir.setCaption("&Salir");
    f.fraAcciones.setCaption("Lineas");
    f.DataGrid1.setAccessibleName("Lineas de mano de obra");
    f.Label2.setAccessibleName("Total de las lineas");
}

void writeHints(LineFields& f) {
    f.DataGrid1.setHint("Líneas de mano de obra de la propuesta; las flechas eligen una");
    f.txtLinea(machine).setHint("Número de la máquina; F2 la busca por su nombre");
    f.cboOperarios.setHint("Operario; al elegirlo se toma su precio por hora en esta máquina");
    f.txtLinea(hourPrice).setHint("Precio de venta de una hora, en €");
    f.txtLinea(minutes).setHint("Minutos estimados para una pieza");
}

Layout number(std::string caption, screen::TextBox& box, int width = numberWidth) {
    return lay::field(std::move(caption), box, width).number(lineDecimals).above();
}

Layout actions(LineFields& f) {
    // An empty row takes the place of the actions while a line is edited, so that nothing below moves.
    return lay::takeTurns(lay::group(f.fraAcciones, lay::row(lay::plain(f.cmdNuevaLinea), lay::plain(f.cmdEditarLinea),
                                                             lay::plain(f.cmdEliminarLinea))),
                          lay::row(lay::space()));
}

Layout line(LineFields& f) {
    return lay::group(
        f.fraLinea,
        lay::column(
            lay::row(
                lay::field("Maquina", f.txtLinea(machine), keyWidth).number().above(),
                lay::field("Descripción de la Maquina (F2 Busca Maquinas)", f.txtLinea(machineName))
                    .as(Role::calculated)
                    .above()
                    .stretched(3),
                lay::field("Sección de la Maquina", f.txtLinea(section)).as(Role::calculated).above().stretched(2)),
            lay::row(lay::field("Operario", f.cboOperarios).above().stretched(),
                     number("Precio Hora", f.txtLinea(hourPrice)).units("€"),
                     number("Precio Minuto", f.txtLinea(minutePrice)).as(Role::calculated).units("€"),
                     number("Minutos Estimados", f.txtLinea(minutes)).units("min"),
                     number("Importe", f.txtLinea(amount)).as(Role::calculated).units("€")),
            lay::row(lay::plain(f.cmdBuscarMaquina), lay::space(), lay::plain(f.cmdGrabarLinea),
                     lay::plain(f.cmdCancelar))));
}

/// Fields that only display are disabled even when their frame is enabled: leaving such a field would turn its text
/// into "0".
void closeWhatIsShown(LineFields& f) {
    for (const int shown : {int{machineName}, int{section}, int{amount}, int{minutePrice}}) {
        f.txtLinea(shown).setEnabled(false);
    }
    for (const int unused : {3, 4}) {
        f.txtLinea(unused).setVisible(false);
    }
    f.cboOperPvp.setVisible(false);
}

}  // namespace

void frmManoObra::arrange() {
    writeFixedCaptions(f_);
    writeHints(f_);
    closeWhatIsShown(f_);
    setLayout(lay::column(lay::plain(f_.DataGrid1).stretched(),
                          lay::row(actions(f_), lay::space(), lay::field("Total", f_.Label2).number().as(Role::total)),
                          line(f_), lay::row(lay::space(), lay::plain(f_.cmdSalir))));
    // The list comes first: entering and leaving the machine field would select the machine's first operator.
    setTabOrder({&f_.DataGrid1, &f_.cmdNuevaLinea, &f_.cmdEditarLinea, &f_.cmdEliminarLinea, &f_.txtLinea(machine),
                 &f_.cboOperarios, &f_.txtLinea(hourPrice), &f_.txtLinea(minutes), &f_.cmdGrabarLinea, &f_.cmdCancelar,
                 &f_.cmdBuscarMaquina, &f_.cmdSalir});
}

}  // namespace velmora::labour
