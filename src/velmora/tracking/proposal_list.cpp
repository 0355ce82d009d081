#include "velmora/tracking/proposal_list.h"

#include <string_view>
#include <vector>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/sql/long_run.h"

namespace velmora::tracking {

namespace {

/// The first columns of the statement.
std::vector<screen::GridColumn> listColumns() {
    return {
        {.field = 0, .caption = "Tipo", .width = 1400},
        {.field = 1, .caption = "Presupuesto", .width = 1000, .mask = "000000", .button = true},
        {.field = 2, .caption = "Fecha Presupuesto", .width = 1500, .mask = "dd/mm/yyyy"},
        {.field = 3, .caption = "Fecha Aceptación", .width = 1400, .mask = "dd/mm/yyyy"},
        {.field = 4, .caption = "Orden", .width = 1200, .button = true},
        {.field = 5, .caption = "Unidades", .width = 1200, .right = true},
        {.field = 6, .caption = "Importe Unidad", .width = 1400, .mask = "#,##0.00", .right = true},
        {.field = 7, .caption = "Cliente", .width = 1000, .right = true},
        {.field = 8, .caption = "Nombre", .width = 6000},
    };
}

constexpr std::string_view order = " Order by DPI_Fecha";
constexpr std::string_view orderWithTable = " Order by DPI.DPI_Fecha";
/// The server's number for a column that two columns of the list could be.
constexpr int ambiguousColumn = 209;

sql::Recordset noRows() {
    return sql::Recordset(sql::rowsInMemory({{"DPI_Id"}, {"DPI_Orden"}}, {}));
}

}  // namespace

void ProposalList::show(const std::string& condition) {
    // Chosen C-120: the list is emptied before the query runs, so that a refused statement leaves an open, empty list
    // and no button works on rows that no longer match the criteria.
    const sql::Recordset before = *f_.rsDpi;
    put(noRows());
    try {
        put(rowsOf(condition));
    } catch (const sql::DbError& error) {
        if (error.details().sqlState == sql::cancelledState && before.isOpen()) {
            putBack(before);
        }
        throw;
    }
}

// Differs D-513: a query that the user has cancelled leaves the list as it was. The panel, and what was typed in it, is
// not touched.
void ProposalList::putBack(const sql::Recordset& before) {
    const auto listener = std::exchange(f_.rsDpi.onMoveComplete, {});
    put(before);
    f_.rsDpi.onMoveComplete = listener;
}

// Differs D-291: the statement lists DPI_Fecha twice, once in dpi.*; a server that refuses to order by such a column
// gets the statement once more with the table's name, and at once from then on.
sql::Recordset ProposalList::rowsOf(const std::string& condition) {
    const std::string qualified = runtime::Replace(condition, order, orderWithTable);
    if (order_->needsTable) {
        return session_.Connection().execute(listStatement(qualified));
    }
    try {
        return session_.Connection().execute(listStatement(condition));
    } catch (const sql::DbError& error) {
        if (error.details().nativeCode != ambiguousColumn || qualified == condition) {
            throw;
        }
    }
    sql::Recordset rows = session_.Connection().execute(listStatement(qualified));
    order_->needsTable = true;
    return rows;
}

void ProposalList::put(sql::Recordset rows) {
    // Chosen C-121: the grid is bound before the panel is notified: a row that the panel cannot show raises an error,
    // but the list is shown.
    f_.dbgDPI.bind(rows);
    f_.dbgDPI.setColumns(listColumns());
    f_.dbgDPI.refresh();
    f_.rsDpi = std::move(rows);
}

}  // namespace velmora::tracking
