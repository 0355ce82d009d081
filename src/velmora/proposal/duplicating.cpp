#include "velmora/proposal/duplicating.h"

#include <algorithm>
#include <array>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

using runtime::CStr;
using session::Tipo;

namespace {

/// Columns that are not copied: key and date are set by the server, order and acceptance belong to the original.
constexpr std::array<std::string_view, 4> notCopied{"DPI_ID", "DPI_FECHA", "DPI_ORDEN", "DPI_FACEPTA"};

constexpr long refusedInsert = -9999;
constexpr double minutesOfAnHour = 60;

/// Adds a column of the copy, with the kind of its value.
void addCopied(session::FieldList& campos, const std::string& column, const sql::Value& value) {
    if (value.isNull()) {
        campos.Add(column, Tipo::expression, " Null ");
    } else if (value.isDate()) {
        campos.Add(column, Tipo::date, value);
    } else if (value.isBit()) {
        campos.Add(column, Tipo::boolean, value.toBool() ? 1 : 0);
    } else if (value.isNumber()) {
        // Kept K-108: two decimals, as a save writes them: a pitch of 9,525 written by another program is copied as
        // 9,53.
        const bool hasDecimals = value.toText().find(',') != std::string::npos;
        campos.Add(column, hasDecimals ? Tipo::number : Tipo::wholeNumber, value);
    } else {
        // Differs D-101: a text is copied unchanged even when it looks like a number; otherwise a customer's reference
        // "00123" would become 123, and "1,5" 1.5.
        campos.Add(column, Tipo::text, value);
    }
}

/// A number of a labour line as a literal in a statement.
std::string literal(const sql::Value& value) {
    // Chosen C-103: a null, which another program may have written, is copied as null.
    return value.isNull() ? "Null" : runtime::Replace(value.toText(), ",", ".");
}

}  // namespace

/// Number and date of the proposal on the form before it was copied.
class Duplicating::Original {
  public:
    explicit Original(estimate::FieldMap& f)
        : f_(f), number_(f.proposal.number()), date_(f.txtPesu(money::created).text()) {}

    void putBack() const {
        f_.txtPesu(money::proposal).setText(number_);
        f_.txtPesu(money::created).setText(date_);
    }

  private:
    estimate::FieldMap& f_;
    std::string number_;
    std::string date_;
};

void Duplicating::cmdDuplicar_Click() {
    if (f_.proposal.isNew() || f_.txtPesu(money::created).text().empty()) {
        return;
    }
    if (screen_.show({.text = "Seguro que desea duplicar esta propuesta",
                      .icon = screen::Icon::information,
                      .buttons = screen::Buttons::yesNo}) != screen::Answer::no) {
        msDuplicar();
    }
}

void Duplicating::msDuplicar() {
    if (!f_.txtPesu(money::customerCode).enabled()) {
        return;
    }
    if (f_.txtPesu(money::customerName).text().empty() || !runtime::IsNumeric(f_.txtPesu(money::customerCode).text())) {
        screen_.show({.text = "Error Falta Cliente", .icon = screen::Icon::critical});
        f_.txtPesu(money::customerCode).setFocus();
        return;
    }
    if (f_.proposal.units() < 1) {
        screen_.show({.text = "Error Falta indicar el numero de unidades", .icon = screen::Icon::critical});
        f_.txtPesu(money::pieces).setFocus();
        return;
    }
    FnDuplicarPropuesta(f_.proposal.key());
}

void Duplicating::FnDuplicarPropuesta(std::int32_t nIdOrigen) {
    struct Guard {
        bool& bCargandoPropuesta;
        ~Guard() { bCargandoPropuesta = false; }
    } const guard{f_.bCargandoPropuesta};
    f_.bCargandoPropuesta = true;

    sql::Connection& connection = session_.Connection();
    sql::Recordset row = connection.execute("Select * from DPI where DPI_id=" + CStr(std::int64_t{nIdOrigen}));
    if (row.eof()) {
        // Kept K-109: when another user has deleted the proposal meanwhile, this ends with the error of a commit
        // without an open transaction, and no message of success is shown.
        connection.commitTrans();
        return;
    }
    const Original original(f_);
    runtime::ErrorTrap trap;
    try {
        trap([&] {
            sql::inTransaction(connection, [&] {
                copyProposal(row);
                row = {};
                takeNewNumber();
                copyLines(nIdOrigen);
                return true;
            });
        });
        if (!trap.failed()) {
            screen_.show({.text = "Propuesta duplicada satisfactoriamente", .icon = screen::Icon::information});
            loadCopy(original);
            return;
        }
    } catch (...) {
        original.putBack();
        throw;
    }
    // Differs D-100: the first error ends the copy, a failed commit included, and number and date are the original's
    // again; otherwise the form would show a number that the next save overwrites.
    original.putBack();
    f_.form.setTag("E");
    screen_.show({.text = "Error en la grabacion del registro:\r\n" + trap.error()->description()});
}

// When the copy cannot be loaded, the original stays on the form.
void Duplicating::loadCopy(const Original& original) {
    if (!loading_.msCargarPresupuesto(f_.proposal.key(), true)) {
        original.putBack();
    }
}

void Duplicating::copyProposal(const sql::Recordset& row) {
    const auto addFields = [&row](session::FieldList& campos) {
        for (std::size_t i = 0; i < row.columns().size(); ++i) {
            const std::string& column = row.columns()[i].name;
            if (std::ranges::find(notCopied, runtime::UCase(column)) == notCopied.end()) {
                addCopied(campos, column, row[i]);
            }
        }
    };
    const session::RowWrite written = session::tryInsertRow(session_, "DPI", addFields);
    if (!written.stored) {
        throw runtime::RuntimeError(refusedInsert, written.error);
    }
}

void Duplicating::takeNewNumber() {
    const std::string id = session_.Connection().execute("SELECT MAX(DPI_Id) FROM DPI")[0].toText();
    f_.txtPesu(money::proposal).setText(id);
    const sql::Recordset row = session_.Connection().execute("SELECT DPI_Fecha FROM DPI where DPI_Id = " + id);
    f_.txtPesu(money::created).setText(runtime::Format(row["DPI_Fecha"].toDate(), "dd/mm/yyyy"));
}

void Duplicating::copyLines(std::int32_t nIdOrigen) {
    sql::Recordset line =
        session_.Connection().execute("SELECT * FROM moDPI where moDPI_dpi = " + CStr(std::int64_t{nIdOrigen}));
    // Kept K-110: the copy's labour keeps the original's sum although its lines get current rates; opening the labour
    // form updates the sum. Required as it is; it determines the stored sum.
    for (; !line.eof(); line.moveNext()) {
        copyLine(line);
    }
}

void Duplicating::copyLine(const sql::Recordset& line) {
    const std::string statement =
        "insert into modpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) "
        "values (" +
        f_.proposal.number() + "," + literal(line["MoDpi_Ope"]) + "," + literal(line["modpi_maq"]) + "," +
        literal(line["MoDpi_Minutos"]) + "," + priceTimeAndAmount(line) + ")";
    session_.Connection().execute(statement);
}

std::string Duplicating::priceTimeAndAmount(const sql::Recordset& line) {
    const sql::Recordset rate =
        session_.Connection().execute("select top 1 OPE_VENTA from ope where ope_mad = " + literal(line["modpi_maq"]) +
                                      " and ope_id = " + literal(line["MoDpi_Ope"]));
    const std::string time = literal(line["MoDpi_Tiempo"]);
    // Kept K-111: only an operator assigned to the machine has a rate here; the price of an assignment, which the
    // labour form prefers, is not read, and the line keeps its old price. Required as it is; it determines stored
    // lines.
    const double perHour = rate.eof() || rate["OPE_VENTA"].isNull() ? 0 : rate["OPE_VENTA"].toDouble();
    if (perHour == 0 || line["MoDpi_Minutos"].isNull()) {
        return literal(line["MoDpi_Pvp"]) + "," + time + "," + literal(line["MoDpi_Importe"]);
    }
    const double amount = oUtil_.Redondear(line["MoDpi_Minutos"].toDouble() * (perHour / minutesOfAnHour), 2);
    return literal(perHour) + "," + time + "," + literal(amount);
}

}  // namespace velmora::proposal
