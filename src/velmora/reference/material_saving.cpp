#include "velmora/reference/material_saving.h"

#include <optional>
#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/reference/row_writing.h"

namespace velmora::reference {

using session::Tipo;

void MaterialSaving::save() {
    const std::string number = f_.Text1(materialId).text();
    if (f_.articleId().empty()) {
        screen_.show({.text = "Falta seleccionar un articulo"});
        return;
    }
    // Kept K-170: the row under the cursor is the one that is changed, whatever number is typed: that field is there
    // to move the cursor with.
    std::string id;
    bool inUse = false;
    runtime::ErrorTrap look;
    if (!f_.bNuevo) {
        look([&] {
            id = list_.currentId();
            inUse = isInUse(id);
        });
    }
    if (look.failed()) {
        tellFailure(*look.error());
        return;
    }
    if (inUse) {
        screen_.show({.text = "No es posible modificar un Indice de Material ya utilizado",
                      .icon = screen::Icon::critical,
                      .title = "Accion Cancelada"});
        return;
    }
    // The list is read anew before the row is there for good: what fails up to then leaves the entry untouched.
    sql::Recordset rows;
    const auto failure = inTransaction(session_, [&] {
        write(id);
        rows = list_.open();
    });
    if (failure) {
        tellFailure(*failure);
        return;
    }
    f_.browse();
    f_.cmdBorrar.setEnabled(true);
    list_.show(std::move(rows));
    if (runtime::IsNumeric(number)) {
        list_.find(number);
    } else {
        list_.goToLast();
    }
    f_.dbgFco.refresh();
    screen_.show({.text = "Datos Gabados satisfactoriamente"});
}

void MaterialSaving::tellFailure(const runtime::RuntimeError& error) {
    screen_.show({.text = std::string("Error al actualizar los almacenes") + lineBreak + error.description()});
}

bool MaterialSaving::isInUse(const std::string& id) {
    const sql::Recordset uses = session_.Connection().execute("Select count(*) from dpi where DPI_IdParDisco = " + id +
                                                              " Or DPI_IdParCubo = " + id);
    return uses[0].toDouble() > 0;
}

void MaterialSaving::write(const std::string& id) {
    session_.Tabla("PARDPI");
    session_.Modo(0);
    addFields();
    if (f_.bNuevo) {
        insertRow(session_, "");
    } else {
        updateRow(session_, " WHERE PARDPI_Id = " + id);
    }
}

void MaterialSaving::addFields() {
    session::FieldList& campos = session_.Campos();
    const auto flag = [](bool value) { return value ? 1 : 0; };
    const bool rack = f_.Check4.checked();
    campos.Add("PARDPI_NOM", Tipo::text, f_.Text1(materialName));
    campos.Add("PARDPI_ART", Tipo::text, f_.articleId());
    campos.Add("PARDPI_MATP", Tipo::text, f_.Text1(materialPrinted));
    campos.Add("PARDPI_HIERRO", Tipo::boolean, flag(f_.Check1.checked()));
    if (rack) {
        campos.Add("PARDPI_DISCO", Tipo::boolean, 0);
        campos.Add("PARDPI_CRE", Tipo::boolean, 1);
    } else {
        campos.Add("PARDPI_CRE", Tipo::boolean, 0);
        campos.Add("PARDPI_DISCO", Tipo::boolean, flag(f_.Check2.checked()));
    }
}

// Kept K-171: the number on show is the one that is deleted, and it is asked for as it stands: "NUEVO" is the
// database's error, and a material that is being added is saved or cancelled first.
void MaterialSaving::remove() {
    const std::string number = f_.Text1(materialId).text();
    if (number.empty()) {
        return;
    }
    const sql::Recordset uses = session_.Connection().execute(
        "Select Count(*) from dpi where DPI_IdParDisco=" + number + " Or DPI_IdParCubo = " + number);
    if (uses[0].toDouble() > 0) {
        screen_.show({.text = "No es posible eliminar este material al estar utilizado en una propuesta.",
                      .icon = screen::Icon::critical});
        return;
    }
    const screen::Answer answer = screen_.show({.text = std::string("Confirma la eliminacion del registro ") +
                                                        lineBreak + number + " " + f_.Text1(materialName).text(),
                                                .icon = screen::Icon::critical,
                                                .buttons = screen::Buttons::yesNo,
                                                .defaultButton = 2});
    if (answer != screen::Answer::yes) {
        return;
    }
    session_.Connection().execute("DELETE FROM PARDPI WHERE PARDPI_Id = " + number);
    list_.msCargarParametros();
    f_.dbgFco.refresh();
}

}  // namespace velmora::reference
