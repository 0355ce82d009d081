#include "velmora/tracking/routing.h"

#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/tracking/order_description.h"

namespace velmora::tracking {

using session::Tipo;

namespace {

constexpr std::int32_t cuttingMachine = 131;
constexpr double cuttingEstimate = 1;

bool insertAtEndOfQueue(session::Session& session, std::int16_t pos, std::int32_t idOrden, std::int32_t numOrden,
                        double estimado, std::int32_t maq) {
    const sql::Recordset place = session.Connection().execute(
        "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =" + runtime::CStr(std::int64_t{maq}));
    const std::int32_t queue = place[0].toLong();
    session.Modo(0);
    session.Tabla("RUT");
    session::FieldList& campos = session.Campos();
    campos.Add("RUT_IdUsu", Tipo::wholeNumber, session.IdUsuario());
    campos.Add("RUT_pos", Tipo::wholeNumber, pos);
    campos.Add("RUT_IdOrden", Tipo::wholeNumber, idOrden);
    campos.Add("RUT_NumOrden", Tipo::wholeNumber, numOrden);
    campos.Add("RUT_Maq", Tipo::wholeNumber, maq);
    campos.Add("RUT_Estimado", Tipo::number, estimado);
    campos.Add("RUT_Mpos", Tipo::wholeNumber, queue);
    return session::insertAddedFields(session).stored;
}

}  // namespace

bool FnAltaRuta(session::Session& session, std::int16_t pos, std::int32_t idOrden, std::int32_t numOrden,
                double estimado, std::int32_t maq) {
    // Differs D-510: the place in the machine's queue is read and written in a transaction of its own: two clients that
    // accept at the same time do not get the same place.
    bool written = false;
    try {
        return sql::inTransaction(session.Connection(), [&] {
            written = insertAtEndOfQueue(session, pos, idOrden, numOrden, estimado, maq);
            return written;
        });
    } catch (const sql::DbError&) {
        if (!written) {
            throw;
        }
        return false;  // a refused commit is a refused row
    }
}

void addRoute(session::Session& session, const sql::Recordset& proposal, const WorkOrder& order,
              std::string_view pieces) {
    std::int16_t nPos = 0;
    // Kept K-152: a refused row is skipped without a message and its position stays unused. Required as it is; the
    // order is stored without the row.
    const auto add = [&](double hours, std::int32_t machine) {
        FnAltaRuta(session, ++nPos, order.id, order.number, hours, machine);
    };
    for (int cut = 0; cut < order.cuts; ++cut) {
        add(cuttingEstimate, cuttingMachine);
    }
    const sql::Recordset lines = session.Connection().execute(
        "Select (modpi_tiempo * " + runtime::Replace(pieces, ",", ".") +
        ")as Tiempo ,modpi_maq from modpi where modpi_dpi=" + joined(proposal["dpi_id"]) + " Order by modpi_id asc");
    for (sql::Recordset line = lines; !line.eof(); line.moveNext()) {
        add(line["Tiempo"].toDouble(), line["modpi_maq"].toLong());
    }
}

}  // namespace velmora::tracking
