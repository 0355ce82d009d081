#include "velmora/platform/session/row_writing.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

#include "support/scripted_connection.h"

namespace velmora::session {
namespace {

using testing::ElementsAre;

/// Notes what it is told; like every session it empties the list of fields with each write.
class NotingSession final : public Session {
  public:
    sql::Connection& Connection() override { return connection_; }
    void Tabla(std::string_view name) override { calls.push_back("Tabla " + std::string(name)); }
    void Modo(int mode) override { calls.push_back("Modo " + std::to_string(mode)); }
    FieldList& Campos() override { return campos; }
    void Donde(std::string_view clause) override { calls.push_back("Donde" + std::string(clause)); }
    void Actualizar(std::string& error, bool& correcto) override { write("Actualizar", error, correcto); }
    void Insertar(std::string& error, bool& correcto) override { write("Insertar", error, correcto); }
    bool ComprobarConexion(sql::Connection&, std::string&) override { return true; }
    std::int32_t IdUsuario() const override { return 1; }
    sql::Value Parametros(std::string_view) const override { return {}; }

    std::vector<std::string> calls;
    FieldList campos;
    std::string refusal;

  private:
    void write(std::string call, std::string& error, bool& correcto) {
        for (const Field& field : campos.fields()) {
            call += " " + field.nombre;
        }
        calls.push_back(call);
        campos.clear();
        error = refusal;
        correcto = refusal.empty();
    }

    support::ScriptedConnection connection_;
};

class RowWriting : public ::testing::Test {
  protected:
    static void addTwo(FieldList& campos) {
        campos.Add("B", Tipo::number, 1);
        campos.Add("A", Tipo::text, "x");
    }
    static void addAndFail(FieldList& campos) {
        campos.Add("B", Tipo::number, 1);
        throw std::logic_error("a fault of the program");
    }

    NotingSession session;
};

TEST_F(RowWriting, AnInsertNamesTheTableThenItsFieldsInTheirOrder) {
    insertRow(session, "PDM", addTwo);
    EXPECT_THAT(session.calls, ElementsAre("Tabla PDM", "Modo 0", "Donde ", "Insertar B A"));
}

TEST_F(RowWriting, AnUpdateBringsItsClause) {
    updateRow(session, "PDM", " where PDM_ID = 7", addTwo);
    EXPECT_THAT(session.calls, ElementsAre("Tabla PDM", "Modo 0", "Donde where PDM_ID = 7", "Actualizar B A"));
}

TEST_F(RowWriting, ARefusalIsAnAnswerOrAnError) {
    session.refusal = "Clave duplicada";
    const RowWrite inserted = tryInsertRow(session, "PDM", addTwo);
    EXPECT_FALSE(inserted.stored);
    EXPECT_EQ(inserted.error, "Clave duplicada");
    EXPECT_FALSE(tryUpdateRow(session, "PDM", " ", addTwo).stored);
    for (const auto& write : {std::function([&] { insertRow(session, "PDM", addTwo); }),
                              std::function([&] { updateRow(session, "PDM", " ", addTwo); })}) {
        try {
            write();
            ADD_FAILURE() << "stored";
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.number(), sql::provider::failure);
            EXPECT_EQ(error.description(), "Clave duplicada");
        }
    }
    session.refusal.clear();
    EXPECT_TRUE(tryInsertRow(session, "PDM", addTwo).stored);
    EXPECT_TRUE(tryUpdateRow(session, "PDM", " ", addTwo).stored);
}

TEST_F(RowWriting, AnErrorAmongTheFieldsWritesNothingAndLeavesNone) {
    EXPECT_THROW(insertRow(session, "PDM", addAndFail), std::logic_error);
    EXPECT_THROW(updateRow(session, "PDM", " ", addAndFail), std::logic_error);
    EXPECT_THAT(session.calls, ElementsAre("Tabla PDM", "Modo 0", "Tabla PDM", "Modo 0"));
    EXPECT_TRUE(session.campos.fields().empty());
}

TEST_F(RowWriting, FieldsAddedStepByStepAreWrittenAsTheyStand) {
    addTwo(session.campos);
    EXPECT_TRUE(insertAddedFields(session).stored);
    addTwo(session.campos);
    session.refusal = "no";
    EXPECT_EQ(updateAddedFields(session).error, "no");
    EXPECT_THAT(session.calls, ElementsAre("Insertar B A", "Actualizar B A"));
}

}  // namespace
}  // namespace velmora::session
