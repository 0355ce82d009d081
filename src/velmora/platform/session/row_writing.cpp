#include "velmora/platform/session/row_writing.h"

#include <cmath>
#include <optional>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::session {

namespace {

constexpr int emptyList = 0;  ///< the mode in which the session starts a new list of fields

class FieldsOfOneWrite {
  public:
    explicit FieldsOfOneWrite(Session& session) : session_(session) {}
    ~FieldsOfOneWrite() { session_.Campos().clear(); }
    FieldsOfOneWrite(const FieldsOfOneWrite&) = delete;
    FieldsOfOneWrite& operator=(const FieldsOfOneWrite&) = delete;

  private:
    Session& session_;
};

using Run = void (Session::*)(std::string& error, bool& correcto);

/// A number's text has 15 digits: below this its whole part comes back as it was, and what is calculated from two such
/// numbers still has a value.
constexpr double tooGreat = 1e15;

std::optional<double> numberIn(const Field& field) {
    if (field.tipo != Tipo::number || field.valor.isNull()) {
        return std::nullopt;
    }
    if (!field.valor.isText()) {
        return field.valor.toDouble();
    }
    const std::string text = field.valor.toText();
    return runtime::IsNumeric(text) ? std::optional(runtime::CDbl(text)) : std::nullopt;
}

/// Empty when the row can hold every number and give it back.
// Differs D-512: a number that could not be read afterwards is refused before it is written.
std::string refusalOf(const FieldList& campos) {
    for (const Field& field : campos.fields()) {
        const std::optional<double> number = numberIn(field);
        if (number && !(std::abs(*number) < tooGreat)) {
            return "El valor " + runtime::CStr(*number) + " es demasiado grande para guardarlo en " + field.nombre +
                   ".";
        }
    }
    return {};
}

RowWrite run(Session& session, Run statement) {
    RowWrite write{.error = refusalOf(session.Campos())};
    if (write.error.empty()) {
        (session.*statement)(write.error, write.stored);
    } else {
        session.Campos().clear();
    }
    return write;
}

RowWrite writeRow(Session& session, std::string_view table, std::string_view where, const AddFields& addFields,
                  Run statement) {
    const FieldsOfOneWrite fields(session);
    session.Tabla(table);
    session.Modo(emptyList);
    addFields(session.Campos());
    session.Donde(where);
    return run(session, statement);
}

void require(const RowWrite& write) {
    if (!write.stored) {
        throw sql::DbError(sql::provider::failure, write.error);
    }
}

}  // namespace

RowWrite tryInsertRow(Session& session, std::string_view table, const AddFields& addFields) {
    return writeRow(session, table, " ", addFields, &Session::Insertar);
}

RowWrite tryUpdateRow(Session& session, std::string_view table, std::string_view where, const AddFields& addFields) {
    return writeRow(session, table, where, addFields, &Session::Actualizar);
}

void insertRow(Session& session, std::string_view table, const AddFields& addFields) {
    require(tryInsertRow(session, table, addFields));
}

void updateRow(Session& session, std::string_view table, std::string_view where, const AddFields& addFields) {
    require(tryUpdateRow(session, table, where, addFields));
}

RowWrite insertAddedFields(Session& session) {
    return run(session, &Session::Insertar);
}

RowWrite updateAddedFields(Session& session) {
    return run(session, &Session::Actualizar);
}

}  // namespace velmora::session
