#include <gtest/gtest.h>
#include "velmora/adapters/sqlite/database.h"
using namespace velmora;
TEST(Smoke, Works) {
    auto db = sqlite::openDatabase(":memory:", {.clock = [] { return runtime::Date::of(2026, 1, 15, 10); }});
    db->execute("CREATE TABLE [dbo].[DPI] ([DPI_Id] [int] IDENTITY (1, 1) NOT NULL, DPI_Z float, DPI_NomCliente nvarchar(50), DPI_Fecha datetime NOT NULL DEFAULT getdate(), b bit, n numeric(18,0)) ON [PRIMARY]");
    db->execute("insert into dpi (dpi_z, DPI_NomCliente, b, n) values (38, N'Piñón', 1, 5)");
    auto rs = db->execute("select top 1 dpi.*, DPI_z+1 as x, 'a' + cast(dpi_z as nvarchar) from dpi where dpi_fecha between '15/01/2026 00:00:00' and '15/01/2026 23:59:00' and dpi_nomcliente = 'PIÑÓN  '");
    ASSERT_TRUE(rs.hasRows());
    EXPECT_EQ(rs["DPI_ID"].toLong(), 1);
    EXPECT_TRUE(rs["b"].isBit());
    EXPECT_TRUE(rs["dpi_fecha"].isDate());
    EXPECT_EQ(rs["x"].toDouble(), 39);
    EXPECT_EQ(rs[7].toText(), "a38");
    db->beginTrans();
    db->execute("delete from dpi");
    db->rollbackTrans();
    EXPECT_EQ(db->execute("select count(*) from dpi")[0].toLong(), 1);
    db->execute("CREATE TABLE DOCVELMORA.dbo.dex (dex_id int identity(1,1), x image null)");
    EXPECT_TRUE(db->execute("select isnull(max(dex_id),1) from DOCVELMORA.dbo.dex")[0].isWhole());
    try { db->execute("select * from eng"); FAIL(); } catch (const sql::DbError& e) { EXPECT_EQ(e.number(), sql::provider::missingTable) << e.description(); }
}
