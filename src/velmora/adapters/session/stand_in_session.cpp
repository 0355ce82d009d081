#include "velmora/adapters/session/stand_in_session.h"

#include <utility>

#include "velmora/adapters/session/statement_builder.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::adapters {

StandInSession::StandInSession(sql::Connection& connection, std::int32_t idUsuario)
    : connection_(connection), idUsuario_(idUsuario) {
    setParametro("par_decprecom", 4);
}

// Chosen C-285: naming a table starts a new list, as mode 0 does. When a form gives up a write half way, on a text that
// is no number, its fields would otherwise be added to the next write, which the server would refuse because a column
// is named twice.
void StandInSession::Tabla(std::string_view name) {
    table_ = name;
    fields_.clear();
}

void StandInSession::Modo(int mode) {
    if (mode == 0) {
        fields_.clear();
    }
}

void StandInSession::run(Write write, std::string& error, bool& correcto) {
    // The list is emptied before anything can fail, so the next write starts with an empty one in every case.
    const session::FieldList fields = std::exchange(fields_, {});
    const Built built = write == Write::insert ? buildInsert(table_, fields) : buildUpdate(table_, fields, where_);
    error = built.error;
    correcto = false;
    if (!error.empty()) {
        return;
    }
    try {
        connection_.execute(built.statement);
        correcto = true;
    } catch (const runtime::RuntimeError& refused) {
        error = refused.description();
    }
}

void StandInSession::Actualizar(std::string& error, bool& correcto) {
    run(Write::update, error, correcto);
}

void StandInSession::Insertar(std::string& error, bool& correcto) {
    run(Write::insert, error, correcto);
}

bool StandInSession::ComprobarConexion(sql::Connection& connection, std::string& error) {
    error = connection.isAlive() ? "" : "La conexión con la Base de Datos se perdió";
    return error.empty();
}

sql::Value StandInSession::Parametros(std::string_view name) const {
    const auto found = parametros_.find(runtime::UCase(name));
    return found == parametros_.end() ? sql::Value() : found->second;
}

void StandInSession::setParametro(std::string_view name, sql::Value value) {
    parametros_.insert_or_assign(runtime::UCase(name), std::move(value));
}

}  // namespace velmora::adapters
