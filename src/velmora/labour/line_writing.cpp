#include "velmora/labour/line_writing.h"

#include <string>
#include <vector>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/sql/kept_row.h"

namespace velmora::labour {

using session::RowState;
using session::Written;

namespace {

const std::vector<std::string> columns{"MoDpi_Dpi",    "MoDpi_Ope", "MoDpi_Maq",    "MoDpi_Minutos",
                                       "MoDpi_Tiempo", "MoDpi_Pvp", "MoDpi_Importe"};

}  // namespace

bool LineWriting::run(const Target& target, const std::function<void()>& write) {
    Written written = Written::refused;
    try {
        written =
            session::writeChecked(session_.Connection(), screen_, clock_,
                                  {.look = [&] { return look(target); },
                                   .write =
                                       [&] {
                                           write();
                                           return true;
                                       },
                                   .question = "La linea ha sido modificada por otro usuario desde que se cargó.\r\n" +
                                               std::string(target.question)});
    } catch (...) {
        session_.Campos().clear();
        throw;
    }
    if (written == Written::closed) {
        screen_.show({.text = reason_, .icon = screen::Icon::critical});
    }
    return written == Written::yes;
}

RowState LineWriting::look(const Target& target) {
    sql::Connection& connection = session_.Connection();
    reason_ = standingIn(connection.execute("Select DPI_FAcepta,DPI_Orden from DPI where DPI_Id = " +
                                            runtime::CStr(std::int64_t{target.nIdDpi})))
                  .words();
    if (!reason_.empty()) {
        return RowState::closed;
    }
    if (!target.line.isOpen()) {
        return RowState::asShown;
    }
    const sql::Recordset now =
        connection.execute("Select * from modpi where modpi_id = " + target.line["modpi_id"].toText());
    if (now.eof()) {
        reason_ = "La linea ya no existe, otro usuario la ha eliminado";
        return RowState::closed;
    }
    return sql::differIn(columns, target.line, now) ? RowState::changed : RowState::asShown;
}

}  // namespace velmora::labour
