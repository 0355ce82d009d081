#include "velmora/labour/line_saving.h"

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"

namespace velmora::labour {

using session::Tipo;

namespace {

constexpr int fourDecimals = 4;
constexpr double secondsOfAMinute = 60;
constexpr double secondsOfAnHour = 3600;

}  // namespace

bool LineSaving::isComplete() {
    if (!runtime::IsNumeric(f_.txtLinea(machine).text())) {
        return refuse("Falta Maquina", machine);
    }
    if (operatorOf(f_.cboOperPvp.text()) < 1) {
        return refuse("Falta Operario", machine);
    }
    // Zero minutes are valid: the time of a line may be entered later.
    return runtime::IsNumeric(f_.txtLinea(minutes).text()) || refuse("Falta valor Minutos", minutes);
}

bool LineSaving::refuse(const char* message, Line field) {
    screen_.show({.text = message, .icon = screen::Icon::critical});
    f_.txtLinea(field).setFocus();
    return false;
}

// Differs D-103: the proposal and the line are read again inside the transaction: no line is stored for a proposal that
// was accepted or deleted since the form opened, and a line changed by another user is overwritten only after a
// confirmation. What was typed stays.
bool LineSaving::save(std::int32_t nIdDpi, const sql::Recordset& shown) {
    return writing_.run({.nIdDpi = nIdDpi, .line = shown, .question = "¿Desea grabar encima de sus cambios?"},
                        [&] { write(nIdDpi, shown); });
}

void LineSaving::write(std::int32_t nIdDpi, const sql::Recordset& shown) {
    const auto addFields = [&](session::FieldList& campos) { add(nIdDpi, campos); };
    // Chosen C-101: a refusal, which the session reports as a text, is raised as an error, and the line stays open with
    // everything typed.
    if (shown.isOpen()) {
        session::updateRow(session_, "MoDpi", " where MoDpi_Id=" + shown["modpi_id"].toText(), addFields);
    } else {
        session::insertRow(session_, "MoDpi", addFields);
    }
}

void LineSaving::add(std::int32_t nIdDpi, session::FieldList& campos) const {
    const double hours = runtime::CDbl(f_.txtLinea(minutes).text()) * secondsOfAMinute / secondsOfAnHour;
    campos.Add("MoDpi_Dpi", Tipo::wholeNumber, nIdDpi);
    campos.Add("MoDpi_Ope", Tipo::wholeNumber, runtime::Left(f_.cboOperPvp.text(), 3));
    campos.Add("MoDpi_Maq", Tipo::wholeNumber, f_.txtLinea(machine));
    campos.Add("MoDpi_Minutos", Tipo::number, f_.txtLinea(minutes), fourDecimals);
    campos.Add("MoDpi_Pvp", Tipo::number, f_.txtLinea(hourPrice));
    campos.Add("MoDpi_Importe", Tipo::number, f_.txtLinea(amount));
    campos.Add("MoDpi_Tiempo", Tipo::number, hours, fourDecimals);
}

}  // namespace velmora::labour
