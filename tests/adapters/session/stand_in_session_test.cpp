#include "velmora/adapters/session/stand_in_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_connection.h"
#include "support/scripted_connection.h"

namespace velmora::adapters {
namespace {

using session::Tipo;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class StandInSessionTest : public ::testing::Test {
  protected:
    support::ScriptedConnection engine;
    support::RecordingConnection connection{engine};
    StandInSession session{connection, 42};
    std::string error = "left over";
    bool correcto = false;

    void begin(std::string_view table) {
        session.Tabla(table);
        session.Modo(0);
        session.Donde(" ");
    }
};

TEST_F(StandInSessionTest, InsertsAndEmptiesTheList) {
    begin("RUT");
    session.Campos().Add("RUT_IdUsu", Tipo::wholeNumber, session.IdUsuario());
    session.Campos().Add("RUT_Estimado", Tipo::number, 1.5);
    session.Insertar(error, correcto);
    EXPECT_TRUE(correcto);
    EXPECT_EQ(error, "");
    EXPECT_THAT(connection.log(), ElementsAre("INSERT INTO RUT (RUT_IdUsu,RUT_Estimado) VALUES (42,1.5)"));
    EXPECT_TRUE(session.Campos().fields().empty());
}

TEST_F(StandInSessionTest, UpdatesUnderItsClause) {
    begin("DPI");
    session.Campos().Add("DPI_Orden", Tipo::wholeNumber, 12);
    session.Donde(" where dpi_id = 3");
    session.Actualizar(error, correcto);
    EXPECT_TRUE(correcto);
    EXPECT_THAT(connection.log(), ElementsAre("UPDATE DPI SET DPI_Orden=12 where dpi_id = 3"));
}

TEST_F(StandInSessionTest, AnInsertLeavesTheClauseAside) {
    begin("DPI");
    session.Donde(" where dpi_id = 3");
    session.Campos().Add("DPI_Z", Tipo::number, 17);
    session.Insertar(error, correcto);
    EXPECT_THAT(connection.log(), ElementsAre("INSERT INTO DPI (DPI_Z) VALUES (17)"));
}

TEST_F(StandInSessionTest, AValueThatDoesNotFitRunsNothingAndEmptiesTheList) {
    begin("DPI");
    session.Campos().Add("DPI_Z", Tipo::number, "17");
    session.Campos().Add("DPI_Rodillo", Tipo::number, "ocho");
    correcto = true;
    session.Insertar(error, correcto);
    EXPECT_FALSE(correcto);
    EXPECT_THAT(error, HasSubstr("DPI_Rodillo"));
    EXPECT_THAT(connection.log(), ElementsAre());
    EXPECT_TRUE(session.Campos().fields().empty());
}

TEST_F(StandInSessionTest, ARefusalOfTheDatabaseIsAnErrorTextAndEmptiesTheList) {
    connection.refuse("INSERT INTO DPI", sql::provider::constraint, "No admite nulos");
    begin("DPI");
    session.Campos().Add("DPI_Z", Tipo::number, "17");
    correcto = true;
    EXPECT_NO_THROW(session.Insertar(error, correcto));
    EXPECT_FALSE(correcto);
    EXPECT_EQ(error, "No admite nulos");
    EXPECT_TRUE(session.Campos().fields().empty());
}

TEST_F(StandInSessionTest, ANewListDropsTheFieldsOfAWriteThatWasGivenUp) {
    begin("PDM");
    session.Campos().Add("PDM_Tipo", Tipo::wholeNumber, 1);
    session.Tabla("PDM");
    session.Campos().Add("PDM_Tipo", Tipo::wholeNumber, 2);
    session.Insertar(error, correcto);
    EXPECT_THAT(connection.log(), ElementsAre("INSERT INTO PDM (PDM_Tipo) VALUES (2)"));
    session.Campos().Add("PDM_Tipo", Tipo::wholeNumber, 3);
    session.Modo(0);
    EXPECT_TRUE(session.Campos().fields().empty());
}

TEST_F(StandInSessionTest, TellsALostConnection) {
    EXPECT_TRUE(session.ComprobarConexion(session.Connection(), error));
    EXPECT_EQ(error, "");
    connection.lose();
    EXPECT_FALSE(session.ComprobarConexion(session.Connection(), error));
    EXPECT_NE(error, "");
}

TEST_F(StandInSessionTest, GivesUserAndSettings) {
    EXPECT_EQ(session.IdUsuario(), 42);
    EXPECT_EQ(session.Parametros("par_decprecom"), sql::Value(4));
    EXPECT_EQ(session.Parametros("PAR_DECPRECOM"), sql::Value(4));
    EXPECT_TRUE(session.Parametros("par_nada").isNull());
    session.setParametro("par_DecPreCom", 2);
    EXPECT_EQ(session.Parametros("par_decprecom"), sql::Value(2));
}

}  // namespace
}  // namespace velmora::adapters
