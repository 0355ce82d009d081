#include "velmora/reference/row_writing.h"

#include <string>

#include "velmora/platform/sql/db_error.h"

namespace velmora::reference {

namespace {

// The session answers a refusal with a text; from here on it is the error that it is.
void require(bool correcto, const std::string& error) {
    if (!correcto) {
        throw sql::DbError(sql::provider::failure, error);
    }
}

}  // namespace

std::optional<runtime::RuntimeError> inTransaction(session::Session& session, const std::function<void()>& work) {
    sql::Connection& connection = session.Connection();
    bool begun = false;
    try {
        connection.beginTrans();
        begun = true;
        work();
        connection.commitTrans();
        return std::nullopt;
    } catch (const runtime::RuntimeError& error) {
        session.Campos().clear();
        if (begun) {
            // A commit that failed may have left the transaction open, or may not: then there is none to undo.
            runtime::ErrorTrap trap;
            trap([&] { connection.rollbackTrans(); });
        }
        return error;
    }
}

void insertRow(session::Session& session, std::string_view donde) {
    std::string error;
    bool correcto = false;
    session.Donde(donde);
    session.Insertar(error, correcto);
    require(correcto, error);
}

void updateRow(session::Session& session, std::string_view donde) {
    std::string error;
    bool correcto = false;
    session.Donde(donde);
    session.Actualizar(error, correcto);
    require(correcto, error);
}

}  // namespace velmora::reference
