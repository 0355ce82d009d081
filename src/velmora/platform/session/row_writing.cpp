#include "velmora/platform/session/row_writing.h"

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

RowWrite run(Session& session, Run statement) {
    RowWrite write;
    (session.*statement)(write.error, write.stored);
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
