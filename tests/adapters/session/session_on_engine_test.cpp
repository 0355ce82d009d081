#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/runtime/dates.h"

#include "support/database_template.h"

namespace velmora::adapters {
namespace {

using session::Tipo;

class SessionOnEngine : public ::testing::Test {
  protected:
    static std::unique_ptr<sql::Connection> emptyDatabase() {
        static const support::DatabaseTemplate empty(data::createDatabase);
        return empty.copy();
    }

    std::unique_ptr<sql::Connection> connection = emptyDatabase();
    StandInSession session{*connection};
    std::string error;
    bool correcto = false;

    sql::Recordset rows() { return connection->execute("select * from DPI"); }
};

TEST_F(SessionOnEngine, EveryKindReadsBackAsItWasMeant) {
    session.Tabla("DPI");
    session.Campos().Add("DPI_Acopla", Tipo::boolean, true);
    session.Campos().Add("DPI_CodCliente", Tipo::wholeNumber, "1001");
    session.Campos().Add("DPI_Z", Tipo::number, "17,256");
    session.Campos().Add("DPI_NomCliente", Tipo::text, "TALLERES D'ARCOMUR ñ€");
    session.Campos().Add("DPI_FechaEntrega", Tipo::dateText, "28/02/2026");
    session.Campos().Add("DPI_FPedCliente", Tipo::date, sql::Value(runtime::Date::of(2026, 1, 5, 9, 5, 7)));
    session.Campos().Add("DPI_PDM_Tipo", Tipo::expression, " Null ");
    session.Insertar(error, correcto);
    ASSERT_TRUE(correcto) << error;
    const sql::Recordset row = rows();
    EXPECT_EQ(row["DPI_Acopla"], sql::Value(1));
    EXPECT_EQ(row["DPI_CodCliente"], sql::Value(1001));
    EXPECT_EQ(row["DPI_Z"], sql::Value(17.26));
    EXPECT_EQ(row["DPI_NomCliente"], sql::Value("TALLERES D'ARCOMUR ñ€"));
    EXPECT_EQ(runtime::CStr(row["DPI_FechaEntrega"].toDate()), "28/02/2026");
    EXPECT_EQ(runtime::CStr(row["DPI_FPedCliente"].toDate()), "05/01/2026 9:05:07");
    EXPECT_TRUE(row["DPI_PDM_Tipo"].isNull());
}

TEST_F(SessionOnEngine, AnUpdateTouchesItsRowAlone) {
    connection->execute("INSERT INTO DPI (DPI_Z) VALUES (17)");
    connection->execute("INSERT INTO DPI (DPI_Z) VALUES (19)");
    session.Tabla("DPI");
    session.Campos().Add("DPI_Z", Tipo::number, "21");
    session.Donde(" Where DPI_Id = 2");
    session.Actualizar(error, correcto);
    ASSERT_TRUE(correcto) << error;
    sql::Recordset row = connection->execute("select DPI_Z from DPI order by DPI_Id");
    EXPECT_EQ(row[0], sql::Value(17.0));
    row.moveNext();
    EXPECT_EQ(row[0], sql::Value(21.0));
}

TEST_F(SessionOnEngine, ATextTooLongIsToldByItsColumn) {
    session.Tabla("DPI");
    session.Campos().Add("DPI_PedCliente", Tipo::text, std::string(61, 'x'));
    session.Insertar(error, correcto);
    EXPECT_FALSE(correcto);
    EXPECT_NE(error.find("DPI_PedCliente"), std::string::npos) << error;
    EXPECT_FALSE(rows().hasRows());
}

TEST_F(SessionOnEngine, ATableThatIsNotThereIsAnErrorText) {
    session.Tabla("NADA");
    session.Campos().Add("A", Tipo::number, 1);
    session.Insertar(error, correcto);
    EXPECT_FALSE(correcto);
    EXPECT_NE(error, "");
}

}  // namespace
}  // namespace velmora::adapters
