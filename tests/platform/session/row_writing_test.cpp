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

TEST_F(RowWriting, ANumberThatCouldNotBeReadAgainIsRefusedBeforeTheStatement) {
    const sql::Value tooGreat[] = {1e15, -1e15, 1e308, "1E+308", "1000000000000000", "-1e20"};
    for (const sql::Value& number : tooGreat) {
        session.calls.clear();
        for (const auto& write : {insertAddedFields, updateAddedFields}) {
            session.campos.Add("A", Tipo::number, 2);
            session.campos.Add("DPI_DmExt", Tipo::number, number);
            const RowWrite refused = write(session);
            EXPECT_FALSE(refused.stored);
            EXPECT_THAT(refused.error, testing::EndsWith("es demasiado grande para guardarlo en DPI_DmExt."));
            EXPECT_TRUE(session.campos.fields().empty());
        }
        EXPECT_TRUE(session.calls.empty());
    }
    EXPECT_THROW(insertRow(session, "T", [](FieldList& campos) { campos.Add("B", Tipo::number, 1e300); }),
                 sql::DbError);
}

TEST_F(RowWriting, NumbersBelowTextsAndNullAreForTheSession) {
    session.campos.Add("A", Tipo::number, 999999999999999.0);
    session.campos.Add("B", Tipo::number, "-999999999999999");
    session.campos.Add("C", Tipo::text, "1E+308");
    session.campos.Add("D", Tipo::number, sql::Value());
    session.campos.Add("E", Tipo::number, "doce");
    EXPECT_TRUE(insertAddedFields(session).stored);
    EXPECT_THAT(session.calls, ElementsAre("Insertar A B C D E"));
}

}  // namespace
}  // namespace velmora::session
