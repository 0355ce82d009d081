#include <utility>

#include "velmora/apps/workshop_data/table_form.h"

namespace velmora::workshop_data {

namespace {

namespace lay = screen::layout;

constexpr int searchWidth = 30;  ///< digits

bool hasReference(const Table& table) {
    for (const Column& column : table.columns) {
        if (column.reference != nullptr) {
            return true;
        }
    }
    return false;
}

}  // namespace

screen::Layout TableForm::layoutOfFields() const {
    screen::Layout lines = lay::column();
    screen::Layout line = lay::row();
    const auto endLine = [&] {
        line.children.push_back(lay::space());
        lines.children.push_back(std::exchange(line, lay::row()));
    };
    for (const auto& field : fields_) {
        if (field->column().startsLine) {
            endLine();
        }
        for (screen::Layout& part : field->layout()) {
            line.children.push_back(std::move(part));
        }
    }
    endLine();
    return lines;
}

void TableForm::arrange() {
    txtBuscar_.setHint("Palabras que contienen las filas, en cualquier orden y sin acentos; vacío: todas");
    dbgFilas_.setHint(std::string(table_.title) + "; las flechas eligen una fila");
    cmdNuevo_.setCaption("&Nuevo (F4)");
    cmdGrabar_.setCaption("&Grabar (F5)");
    cmdDeshacer_.setCaption("&Deshacer (F9)");
    cmdBorrar_.setCaption("&Borrar (F6)");
    cmdBuscarReferencia_.setCaption("B&uscar… (F1)");
    cmdImportar_.setCaption("&Importar CSV…");
    cmdExportar_.setCaption("&Exportar CSV…");
    cmdSalir_.setCaption("&Salir (ESC)");
    cmdBuscarReferencia_.setVisible(hasReference(table_));
    txtBuscar_.setToolTip("Palabras en cualquier orden, con o sin acentos");
    setLayout(lay::column(
        lay::row(lay::field("Buscar (F2)", txtBuscar_, searchWidth), lay::space(), lay::plain(cmdImportar_),
                 lay::plain(cmdExportar_)),
        lay::plain(dbgFilas_).stretched(), lay::group(fraFila_, layoutOfFields()),
        lay::row(lay::plain(cmdNuevo_), lay::plain(cmdGrabar_), lay::plain(cmdDeshacer_), lay::plain(cmdBorrar_),
                 lay::plain(cmdBuscarReferencia_), lay::space(), lay::plain(cmdSalir_)),
        lay::plain(lblEstado_)));
    std::vector<screen::Control*> order{&txtBuscar_, &dbgFilas_};
    for (const auto& field : fields_) {
        order.push_back(&field->control());
    }
    for (screen::Control* button :
         std::initializer_list<screen::Control*>{&cmdGrabar_, &cmdNuevo_, &cmdDeshacer_, &cmdBorrar_,
                                                 &cmdBuscarReferencia_, &cmdImportar_, &cmdExportar_, &cmdSalir_}) {
        order.push_back(button);
    }
    setTabOrder(std::move(order));
}

}  // namespace velmora::workshop_data
