#include "velmora/proposal/saving.h"

#include "velmora/estimate/stored_fields.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

using estimate::TextBox;

namespace {

constexpr const char* lineBreak = "\r\n";

/// Suppresses recalculations and disables the form for the duration of a save; the destructor ends both, also after an
/// error.
class Guarded {
  public:
    explicit Guarded(estimate::FieldMap& f) : f_(f) { set(true); }
    ~Guarded() { set(false); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;

  private:
    void set(bool runs) {
        f_.bCargandoDisco = f_.bCargandoCubo = f_.bCargandoPropuesta = runs;
        f_.form.setEnabled(!runs);
    }

    estimate::FieldMap& f_;
};

}  // namespace

bool Saving::msGrabar(bool bSilencio) {
    heldBack_ = false;
    if (!f_.txtPesu(money::customerCode).enabled() || f_.proposal.isAccepted()) {
        return false;
    }
    if (!isComplete()) {
        return false;
    }
    f_.txtObservaciones.setText(runtime::Replace(f_.txtObservaciones.text(), lineBreak, ""));
    std::string error;
    if (!session_.ComprobarConexion(session_.Connection(), error)) {
        screen_.show({.text = "La conexión con la Base de Datos se perdió"});
        return false;
    }
    session_.Tabla("DPI");
    session_.Modo(0);
    const Guarded guarded(f_);
    const bool isNew = f_.proposal.isNew();
    const session::Written written = write(isNew, error);
    const bool stored = written == session::Written::yes;
    if (stored && !bSilencio) {
        // Kept K-062: the message for a new row has the information icon, that for a changed row none.
        screen_.show({.text = "Datos Grabados satisfactoriamente",
                      .icon = isNew ? screen::Icon::information : screen::Icon::none});
    } else if (!stored && written != session::Written::declined) {
        refuse(isNew, error);
    }
    f_.bCargandoCubo = f_.bCargandoPropuesta = false;
    if (stored) {
        f_.form.setEnabled(false);
        reload();
    }
    return stored;
}

/// Reads the proposal back. When that fails, the form keeps what was typed, and the next save is compared with the row
/// just stored.
void Saving::reload() {
    const std::string number = f_.proposal.number();
    const auto rememberRow = [&] {
        runtime::ErrorTrap trap;
        trap([&] { peers_.stored.remember(peers_.stored.read(number)); });
    };
    peers_.stored.remember({});
    try {
        if (!peers_.loading.msCargarPresupuesto(f_.proposal.key(), true)) {
            rememberRow();
        }
    } catch (...) {
        rememberRow();
        throw;
    }
}

bool Saving::isComplete() {
    TextBox& code = f_.txtPesu(money::customerCode);
    // Chosen C-008: no customer has the code 0; it is refused like a code that is no number.
    if (f_.txtPesu(money::customerName).text().empty() || estimate::numberOrZero(code) == 0) {
        screen_.show({.text = "Error Falta Cliente", .icon = screen::Icon::critical});
        code.setFocus();
        return false;
    }
    if (f_.proposal.units() < 1) {
        screen_.show({.text = "Error Falta indicar el numero de unidades", .icon = screen::Icon::critical});
        f_.txtPesu(money::pieces).setFocus();
        return false;
    }
    return true;
}

bool Saving::mayBeWritten() {
    const labour::ProposalStanding& standing = peers_.stored.readStanding(f_.proposal.number());
    if (standing.state == labour::ProposalStanding::pending) {
        return true;
    }
    refuse(false, standing.words());
    return false;
}

// Differs D-062: a stored row is checked inside the transaction, before it is written: one accepted or deleted since it
// was loaded is not written, one changed by another user only after this user's consent. The form keeps what was
// typed.
// Differs D-002: an error, in the fields or in the transaction, ends as a refused write with its text; the form stays
// usable and keeps what was typed.
session::Written Saving::write(bool isNew, std::string& error) {
    newRow_.reset();
    session::Written written = session::Written::refused;
    try {
        written = session::writeChecked(session_.Connection(), screen_, clock_,
                                        {.look = [&] { return look(isNew); },
                                         .write = [&] { return writeRow(isNew, error); },
                                         .question = "El presupuesto nº " + f_.proposal.number() +
                                                     " ha sido modificado por otro usuario desde que se cargó." +
                                                     lineBreak + "¿Desea grabar encima de sus cambios?"});
    } catch (const runtime::RuntimeError& e) {
        error = e.description();
    } catch (...) {
        session_.Campos().clear();
        throw;
    }
    session_.Campos().clear();
    heldBack_ = written == session::Written::closed || written == session::Written::declined;
    if (written == session::Written::closed) {
        // Chosen C-065: the message of a refused update, with that of a second acceptance as its reason.
        error = peers_.stored.standing().words();
    } else if (written == session::Written::yes && newRow_) {
        put(*newRow_);
    }
    return written;
}

/// Collects the fields first: only the columns that this save writes are checked for changes by others.
session::RowState Saving::look(bool isNew) {
    session::FieldList& campos = session_.Campos();
    campos.clear();
    addFields();
    if (isNew) {
        return session::RowState::asShown;
    }
    std::vector<std::string> columns;
    for (const session::Field& field : campos.fields()) {
        columns.push_back(field.nombre);
    }
    return peers_.stored.look(f_.proposal.number(), columns);
}

bool Saving::writeRow(bool isNew, std::string& error) {
    session_.Donde(isNew ? " " : " Where DPI_Id = " + f_.proposal.number());
    const session::RowWrite written =
        isNew ? session::insertAddedFields(session_) : session::updateAddedFields(session_);
    error = written.error;
    if (written.stored && isNew) {
        newRow_ = readBackNewRow();
    }
    return written.stored;
}

Saving::NewRow Saving::readBackNewRow() {
    const sql::Recordset newest = session_.Connection().execute("SELECT MAX(DPI_Id) FROM DPI");
    const std::string id = newest[0].toText();
    const sql::Recordset row =
        session_.Connection().execute("SELECT DPI_Fecha,DPI_CosteCorteDisco FROM DPI where DPI_Id = " + id);
    return {.number = id,
            .date = runtime::Format(row["DPI_Fecha"].toDate(), "dd/mm/yyyy"),
            .discCut = runtime::Format(row["DPI_CosteCorteDisco"].toDouble(), estimate::amountMask)};
}

// Called after the commit: the number of a row that was rolled back would turn the next save into an update of a row
// that does not exist.
void Saving::put(const NewRow& row) {
    f_.txtPesu(money::proposal).setText(row.number);
    f_.txtPesu(money::created).setText(row.date);
    f_.txtPesu(money::discCut).setText(row.discCut);
}

void Saving::refuse(bool isNew, const std::string& error) {
    f_.form.setTag("E");
    const std::string words = isNew ? "Error en la grabacion del registro:" : "Error en la actualizacion del registro";
    screen_.show({.text = words + lineBreak + error});
}

void Saving::addFields() {
    for (const estimate::StoredField& field : estimate::storedFields()) {
        if (estimate::isWritten(field, f_)) {
            session_.Campos().Add(field.column, field.kind, estimate::storedValue(field, f_));
        }
    }
}

std::string FnImporteFila(const std::string& a, const std::string& b) {
    return runtime::IsNumeric(a) && runtime::IsNumeric(b)
               ? runtime::Format(runtime::CDbl(a) * runtime::CDbl(b), estimate::amountMask)
               : "0,00";
}

}  // namespace velmora::proposal
