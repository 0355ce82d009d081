#include "velmora/labour/line_list.h"

#include <string>
#include <vector>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/sql/kept_row.h"

namespace velmora::labour {

using runtime::CStr;

namespace {

/// By position in MoDpi, whose own columns come first; the last three are the names looked up by the statement.
std::vector<screen::GridColumn> listColumns() {
    return {
        {.field = 0, .caption = "MoDpi_Id", .visible = false},
        {.field = 1, .caption = "MoDpi_Dpi", .visible = false},
        {.field = 2, .caption = "MoDpi_Ope", .visible = false},
        {.field = 3, .caption = "MoDpi_Maq", .visible = false},
        {.field = 4, .caption = "Minutos", .width = 1000, .mask = "#,##0.0000", .right = true},
        {.field = 5, .caption = "MoDpi_Pvp", .visible = false},
        {.field = 6, .caption = "MoDpi_Tiempo", .visible = false},
        {.field = 7, .caption = "Importe", .width = 1000, .mask = "#,##0.00", .right = true},
        {.field = 8, .caption = "Operario", .width = 3500},
        {.field = 9, .caption = "Maquina", .width = 3500},
        {.field = 10, .caption = "Seccion", .width = 3500},
    };
}

}  // namespace

LineList::LineList(LineFields& fields, MachineAndOperators& machines, session::Session& session)
    : f_(fields), machines_(machines), session_(session) {
    rsMo_.onMoveComplete = [this] { rsMo_MoveComplete(); };
}

void LineList::msCargarLineas(std::int32_t nIdDpi) {
    const std::string number = CStr(std::int64_t{nIdDpi});
    f_.form.setCaption("Calculo de Mano de Obra para la propuesta nº " + number);
    rsMo_ = session_.Connection().execute(
        "select *,(select ope_nom from ope where ope_id = modpi_ope) as Operario, "
        "(select maq_nom from maq where maq_id = modpi_maq) as Maquina, "
        "(select rsec_nom from rsec inner join maq on rsec_id = maq_sec where maq_id = modpi_maq) as Seccion "
        "from modpi where modpi_dpi=" +
        number);
    f_.DataGrid1.bind(*rsMo_);
    f_.DataGrid1.setColumns(listColumns());
    msCargarTotal(nIdDpi);
}

void LineList::msCargarTotal(std::int32_t nIdDpi) {
    const sql::Recordset sum = session_.Connection().execute(
        "Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = " + CStr(std::int64_t{nIdDpi}));
    f_.Label2.setCaption(sum.eof() ? "0" : runtime::Format(sum["Importe"].toDouble(), "#,##0.00") + " €");
}

const sql::Recordset& LineList::current() const {
    if (!current_.isOpen()) {
        static_cast<void>((*rsMo_)["modpi_id"]);  // raises the list's own error when there is no current row
    }
    return current_;
}

void LineList::rsMo_MoveComplete() {
    current_ = {};
    if (!rsMo_->hasRows()) {
        return;
    }
    current_ = sql::keptRow(*rsMo_);
    f_.txtLinea(machine).setText(current_["modpi_maq"].toText());
    machines_.msCargarMaquina(current_["modpi_maq"].toLong());
    // Kept K-104: a stored line is shown with the operator's current price, and saving it stores that price. Required
    // as it is; it determines stored prices.
    machines_.choose(current_["MoDpi_Ope"].toLong());
    f_.txtLinea(minutes).setText(current_["MoDpi_Minutos"].toText());
    machines_.txtLinea_LostFocus(minutes);
}

}  // namespace velmora::labour
