#include "velmora/reference/material_saving.h"

#include <charconv>
#include <cstdint>
#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/session/deed.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/reference/refusal.h"

namespace velmora::reference {

using session::RowState;
using session::Tipo;
using session::Written;

namespace {

constexpr const char* savingCancelled = "Accion Cancelada";
constexpr const char* usedAndNotChanged = "No es posible modificar un Indice de Material ya utilizado";
constexpr const char* usedAndNotDeleted = "No es posible eliminar este material al estar utilizado en una propuesta.";
constexpr const char* materialChangedByAnother =
    "Otro usuario ha cambiado este material desde que se mostró.\r\n¿Desea grabar encima de sus cambios?";
constexpr const char* changedAndDeleted =
    "Otro usuario ha cambiado este material desde que se mostró.\r\n¿Desea eliminarlo de todos modos?";

std::string materialIsGone(const std::string& number) {
    return "El material nº " + number + " ya no existe: otro usuario lo ha eliminado.";
}

/// The whole number that the text represents; nullopt for any other text.
std::optional<std::int32_t> wholeNumber(const std::string& text) {
    std::int32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && read == end ? std::optional(number) : std::nullopt;
}

}  // namespace

void MaterialSaving::save() {
    const std::string number = f_.Text1(materialId).text();
    if (f_.articleId().empty()) {
        screen_.show({.text = "Falta seleccionar un articulo"});
        return;
    }
    std::optional<sql::Recordset> rows;
    runtime::ErrorTrap trap;
    trap([&] { rows = f_.bNuevo ? insert() : update(); });
    if (trap.failed()) {
        tellFailure(*trap.error());
        return;
    }
    if (!rows) {
        return;
    }
    f_.browse();
    f_.cmdBorrar.setEnabled(true);
    list_.show(std::move(*rows));
    if (runtime::IsNumeric(number)) {
        list_.find(number);
    } else {
        list_.goToLast();
    }
    f_.dbgFco.refresh();
    f_.form.status().tellDeed(session::deedNow("Material " + number + " grabado", clock_));
    screen_.show({.text = "Datos Gabados satisfactoriamente"});
}

// The list is read before the commit: an error up to then leaves the entry untouched.
std::optional<sql::Recordset> MaterialSaving::insert() {
    std::optional<sql::Recordset> rows;
    sql::inTransaction(session_.Connection(), [&] {
        write("");
        rows = list_.open();
        return true;
    });
    return rows;
}

std::optional<sql::Recordset> MaterialSaving::update() {
    // Kept K-170: the current row is updated, whatever number is typed: that field only moves the cursor. Required as
    // it is; it determines the row written.
    const std::string id = list_.currentId();
    if (isInUse(id)) {
        refuse(screen_, usedAndNotChanged, savingCancelled);
        return std::nullopt;
    }
    // Differs D-162: the material is read again in the transaction of its write: one that another user has deleted, or
    // that a proposal has come to use, stays as it is; for a changed one the user is asked.
    std::optional<sql::Recordset> rows;
    std::string reason;
    const session::ShownRow shown = list_.currentRow();
    const auto look = [&] {
        const RowState state = shown.state(session_.Connection());
        if (state == RowState::closed) {
            reason = materialIsGone(id) + lineBreak + "No se ha grabado nada.";
            return state;
        }
        const bool inUse = isInUse(id);
        reason = inUse ? usedAndNotChanged : "";
        return inUse ? RowState::closed : state;
    };
    const auto writeOver = [&] {
        write(id);
        rows = list_.open();
        return true;
    };
    const Written written =
        session::writeChecked(session_.Connection(), screen_, clock_,
                              {.look = look, .write = writeOver, .question = materialChangedByAnother});
    if (written == Written::closed) {
        refuse(screen_, reason, savingCancelled);
    }
    return rows;
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
    const auto fields = [this](session::FieldList& campos) { addFields(campos); };
    if (f_.bNuevo) {
        session::insertRow(session_, "PARDPI", fields);
    } else {
        session::updateRow(session_, "PARDPI", " WHERE PARDPI_Id = " + id, fields);
    }
}

void MaterialSaving::addFields(session::FieldList& campos) const {
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

void MaterialSaving::remove() {
    const std::string number = f_.Text1(materialId).text();
    if (number.empty() || !mayDelete(number)) {
        return;
    }
    const screen::Answer answer = screen_.show({.text = std::string("Confirma la eliminacion del registro ") +
                                                        lineBreak + number + " " + f_.Text1(materialName).text(),
                                                .icon = screen::Icon::critical,
                                                .buttons = screen::Buttons::yesNo,
                                                .defaultButton = 2});
    if (answer == screen::Answer::yes) {
        removeCurrent(number);
    }
}

bool MaterialSaving::mayDelete(const std::string& number) {
    // Kept K-171: the displayed number is deleted, and its uses are counted by its text unchanged: for "NUEVO" the
    // database reports an error, so a material being added must first be saved or savingCancelled.
    if (isUsedBeforeDeleting(number)) {
        refuse(screen_, usedAndNotDeleted);
        return false;
    }
    // Differs D-163: a text that is not a whole number is never inserted into a DELETE statement.
    const std::optional<std::int32_t> id = wholeNumber(number);
    if (!id) {
        refuse(screen_, "El código del material debe ser un número entero.");
        return false;
    }
    // Differs D-164: nothing is deleted when the displayed number is not that of the current row, because the list does
    // not contain it: the name beside it belongs to another material.
    if (!list_.isCurrent(*id)) {
        refuse(screen_, "El material nº " + number + " no está en la lista.");
        return false;
    }
    return true;
}

void MaterialSaving::removeCurrent(const std::string& number) {
    // Differs D-165: the material is read again as before a save, and after the question, which may have been open for
    // long.
    bool gone = false;
    const session::ShownRow shown = list_.currentRow();
    const auto look = [&] {
        const RowState state = shown.state(session_.Connection());
        gone = state == RowState::closed;
        return !gone && isUsedBeforeDeleting(number) ? RowState::closed : state;
    };
    const auto deleteIt = [&] {
        session_.Connection().execute("DELETE FROM PARDPI WHERE PARDPI_Id = " + number);
        return true;
    };
    const Written written = session::writeChecked(session_.Connection(), screen_, clock_,
                                                  {.look = look, .write = deleteIt, .question = changedAndDeleted});
    if (written == Written::closed) {
        refuse(screen_, gone ? materialIsGone(number) : usedAndNotDeleted);
    }
    if (written == Written::yes || gone) {
        list_.msCargarParametros();
        f_.dbgFco.refresh();
    }
}

bool MaterialSaving::isUsedBeforeDeleting(const std::string& number) {
    const sql::Recordset uses = session_.Connection().execute(
        "Select Count(*) from dpi where DPI_IdParDisco=" + number + " Or DPI_IdParCubo = " + number);
    return uses[0].toDouble() > 0;
}

}  // namespace velmora::reference
