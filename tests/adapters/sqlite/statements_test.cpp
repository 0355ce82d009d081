// Every statement of the program, to the letter, on the embedded engine.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sample_database.h"

namespace velmora::test {

namespace {

struct Query {
    std::string text;
    std::string answer;
};

std::vector<Query> maintenance() {
    return {
        {"Select top 1 PARDPI_ID from PARDPI", "1"},
        {"Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat "
         "inner join PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 ",
         "1|0.05/2|0.02"},
        {"SELECT * FROM PARDPI where PARDPI_DISCO=1", "1|Disco F-114|1|true|true|Acero|false"},
        {"SELECT * FROM PARDPI where PARDPI_DISCO=0", "2|Cubo|2|false|false|Chapa|false"},
        {"SELECT * FROM PARDPI where PARDPI_CRE=1", ""},
        {"SELECT PARDPI.*,ART.* FROM PARDPI INNER JOIN ART ON PARDPI_ART = ART_ID WHERE PARDPI_ID= 1",
         "1|Disco F-114|1|true|true|Acero|false|1|R-F114|Redondo F-114|2|6.165|0.95|1.4|1|1|0"},
        {"SELECT PARDPI.*,ART.ART_COD,ART.ART_DES,ART.ART_ID FROM PARDPI LEFT JOIN ART ON PARDPI_ART = ART_ID order by "
         "PARDPI_id ",
         "1|Disco F-114|1|true|true|Acero|false|R-F114|Redondo F-114|1/2|Cubo|2|false|false|Chapa|false|CH-8|Chapa de "
         "8|2"},
        {"Select ART_ID,ART_COD,ART_DES,('') as Blanco FROM ART where art_cod='ch-8'", "2|CH-8|Chapa de 8|"},
        {"Select ART_ID,ART_COD,ART_DES,(ART_COD + ' ' + ART_DES) as CodDes FROM ART where art_estado=0 order by "
         "ART_COD,art_des",
         "2|CH-8|Chapa de 8|CH-8 Chapa de 8/1|R-F114|Redondo F-114|R-F114 Redondo F-114"},
        {"Select ART_ID,ART_COD,ART_DES,('') as Blanco FROM ART where art_estado=0 order by ART_DES",
         "2|CH-8|Chapa de 8|/1|R-F114|Redondo F-114|"},
        {"Select art_for from art where art_id =1", "2"},
        {"Select count(*) from dpi where DPI_IdParDisco = 1 Or DPI_IdParCubo = 1", "1"},
        {"Select Count(*) from dpi where DPI_IdParDisco=9 Or DPI_IdParCubo = 9", "0"},
        {"Select * from PDM where PDM_Tipo = 3", "1|3|ISO 3/4'' Doble Z21|21.0|19.05"},
        {"Select * from PDM where PDm_tipo = 3 AND PDm_z=21", "1|3|ISO 3/4'' Doble Z21|21.0|19.05"},
        {"Select max(PDM_ID) from PDM", "1"},
        {"Select * from eng where eng_id=1", "1|0|2.0|20.0|6.2832|40.0|35.0|44.0|30.0|25.0|50.0|10.5|5.0|5.5"},
        {"Select max(ENG_ID) from ENG", "1"},
        {"select * from eng where ENG_Tipo=-1", ""},
    };
}

std::vector<Query> gearFilters() {
    const std::string row = "1|0|2.0|20.0|6.2832|40.0|35.0|44.0|30.0|25.0|50.0|10.5|5.0|5.5";
    std::vector<Query> all;
    for (const char* condition : {" And ENG_Modulo=2", " And ENG_z=20", " And ENG_DM=30", " And ENG_D1=25.0",
                                  " And ENG_A=10.5", " And ENG_B=5"}) {
        all.push_back({std::string("select * from eng where ENG_Tipo=0") + condition, row});
    }
    all.push_back({"select * from eng where ENG_Tipo=1 And ENG_Modulo=2", ""});
    return all;
}

std::vector<Query> dimensions() {
    return {
        {"SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 1 and Calculos_Valor1<=100 and "
         "Calculos_Valor2>=100 order by Calculos_Valor2 ",
         "0.7"},
        {"SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 1 and Calculos_Valor1<=153.79 and "
         "Calculos_Valor2>=153.79 order by Calculos_Valor2 ",
         "0.6"},
        {"SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 2 and Calculos_Valor1<=1E+15 and "
         "Calculos_Valor2>=1E+15 order by Calculos_Valor2 ",
         ""},
    };
}

const std::string history =
    "Select DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,DPI_Unidades,DPI_ImpTP,DPI_CodCliente,"
    "DPI_Pas,DPI_ac,DPI_rodillo,DPI_Eje,dpi_protex,DPI_NomCliente,(select art_des from art where art_id = "
    "dpi_artdisco) as "
    "Material from DPI ";

const std::string firstInHistory =
    "1|2026-01-15 10:00:00|NULL|NULL|3.0|30.49|1001|12.7|7.75|7.75|24.0||TALLERES NORTE SL|Redondo F-114";
const std::string secondInHistory =
    "2|2026-01-10 00:00:00|2026-01-11 09:30:00|500|1.0|12.0|1002|12.7|7.75|7.75|30.0||Hierros Ñuñoa|Chapa de 8";

std::vector<Query> proposals() {
    return {
        {"SELECT MAX(DPI_Id) FROM DPI", "2"},
        {"SELECT DPI_Fecha,DPI_CosteCorteDisco FROM DPI where DPI_Id = 1", "2026-01-15 10:00:00|8.2"},
        {"SELECT DPI_Fecha FROM DPI where DPI_Id = 2", "2026-01-10 00:00:00"},
        {"select * from DPI where DPI_ID=0", ""},
        {"Select * from DPI where DPI_id=77", ""},
        {history + " WHERE DPI_Z = 38 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 7.75 And Dpi_Tipo = 0"
                   " Order by DPI_Fecha DESC",
         firstInHistory},
        {history + " WHERE Dpi_Tipo = 13 And DPI_Z = 38  and DPI_Pas = 12.7  and DPI_AC = 7.75  and DPI_Rodillo = 7.75 "
                   " and DPI_Id <> 1"
                   " And ( not DPI_FAcepta is null ) Order by DPI_FAcepta DESC ",
         secondInHistory},
        {history + " WHERE Dpi_Tipo = 0 And ( DPI_FAcepta is null ) Order by DPI_Fecha DESC ", firstInHistory},
        {"SELECT * FROM moDPI where moDPI_dpi = 1", "1|1|5|131|15.0|30.0|0.25|7.5/2|1|6|7|10.0|30.0|0.1667|5.0"},
        {"select top 1 OPE_VENTA from ope where ope_mad = 131 and ope_id = 5", "30.0"},
        {"Select CLI_ID,CLI_COD,CLI_NOM FROM CLI", "1|1001|TALLERES NORTE SL/2|1002|Hierros Ñuñoa"},
        {"Select CLI_ID,CLI_COD,CLI_COMER FROM CLI", "1|1001|NORTE/2|1002|ÑUÑOA"},
        {"Select CLI_NOM,CLI_ID from cli where CLI_COD=1001", "TALLERES NORTE SL|1"},
    };
}

const std::string tracking =
    "select (case when dpi_tipo= 0 then 'Piñon Especial' "
    " when dpi_tipo=1 then 'Disco' when dpi_tipo=2 then 'Piñon 2 Cubos' when dpi_tipo=3 then 'Poleas Lisas' "
    " when dpi_tipo=4 then 'Piñon Doble' when dpi_tipo=5 then 'Piñon de Dos Cadenas' "
    " when dpi_tipo=6 then 'Disco Doble' when dpi_tipo=7 then 'Disco de Dos Cadenas' "
    " when dpi_tipo=8 then 'Engranaje Recto' when dpi_tipo=9 then 'Disco Engranaje Recto' "
    " when dpi_tipo=10 then 'Piñon 2 Cubos Variable' when dpi_tipo=11 then 'Poleas Lisas 2 Cubos Variable' "
    " when dpi_tipo=12 then 'Piñon Triple' when dpi_tipo=13 then 'Cremallera' when dpi_tipo=14 then 'Disco Triple' "
    "else '' end) as "
    "Tipo, "
    " DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,DPI_Unidades,DPI_ImpTP,DPI_CodCliente,"
    "DPI_NomCliente,dpi.* from DPI ";

std::vector<Query> labourAndOrders() {
    return {
        {"Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = 1", "12.5"},
        {"Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = 99", "0.0"},
        {"select *,(select ope_nom from ope where ope_id = modpi_ope) as Operario, "
         "(select maq_nom from maq where maq_id = modpi_maq) as Maquina, "
         "(select rsec_nom from rsec inner join maq on rsec_id = maq_sec where maq_id = modpi_maq) as Seccion "
         "from modpi where modpi_dpi=1",
         "1|1|5|131|15.0|30.0|0.25|7.5|Ana|Sierra de cinta|Sierra/2|1|6|7|10.0|30.0|0.1667|5.0|Luis|Talladora|NULL"},
        {"select maq_nom,rsec_nom from maq left join rsec on maq_sec = rsec_id where maq_id = 7", "Talladora|NULL"},
        {"select top 1 ope_id,ope_nom,OPE_VENTA from ope where ope_mad = 131", "5|Ana|30.0"},
        {"select ope_id,ope_nom,obm_ptr from ope inner join obm on ope_id = obm_ope where obm_maq =131", "6|Luis|27.5"},
        {"Select maq_id, maq_nom,rsec_nom from maq inner join rsec on maq_sec = rsec_id order by rsec_nom",
         "131|Sierra de cinta|Sierra"},
        {"SELECT (select isnull(round(sum(rec_importe),2),0) FROM REC where rec_sit IN('1','2','3','4') AND Rec_IdClPr "
         "= "
         "cli.cli_id)  +  (SELECT isnull(round(sum(lav_importe),2),0) From Cav INNER JOIN Lav ON Cav_Id = LAv_Idcav "
         "WHERE "
         "(Cav_Situa =1 or Cav_Situa =3) and cav_idcli = cli.cli_id) AS TOTAL, CLI_ImpMaxRiesgo,Cli_Riesgo FROM Cli "
         "WHERE "
         "CLI_COD = 1001",
         "175.5|3000.0|1"},
        {"SELECT (select isnull(round(sum(rec_importe),2),0) FROM REC where rec_sit IN('1','2','3','4') AND Rec_IdClPr "
         "= "
         "cli.cli_id)  +  (SELECT isnull(round(sum(lav_importe),2),0) From Cav INNER JOIN Lav ON Cav_Id = LAv_Idcav "
         "WHERE "
         "(Cav_Situa =1 or Cav_Situa =3) and cav_idcli = cli.cli_id) AS TOTAL, CLI_ImpMaxRiesgo,Cli_Riesgo FROM Cli "
         "WHERE "
         "CLI_COD = 1002",
         "0.0|0.0|0"},
        {"Select CLI_GtosFinan from cli where cli_cod=1001", "1.5"},
        {"Select max(orden_NUM) FROM ORDEN", "500"},
        {"Select top 1 art_cod,art_des from art inner join orden on art_cod = orden_art where orden_ref = 'REF-1' "
         "order by orden_id desc",
         "CH-8|Chapa de 8"},
        {"Select orden_id FROM ORDEN where orden_num=500", "1"},
        {"SELECT MAX(Opi_Id) FROM OrdPiñones", "1"},
        {"SELECT * FROM art where art_id = 2", "2|CH-8|Chapa de 8|1|7.85|0.8|1.2|2|0|0"},
        {"select isnull(max(rut_mpos),0)+1 from rut where rut_maq =131", "5"},
        {"select isnull(max(rut_mpos),0)+1 from rut where rut_maq =1", "1"},
        {"Select (modpi_tiempo * 3)as Tiempo ,modpi_maq from modpi where modpi_dpi=1 Order by modpi_id asc",
         "0.75|131/0.5001|7"},
        {"Select (modpi_tiempo * 2.5)as Tiempo ,modpi_maq from modpi where modpi_dpi=1 Order by modpi_id asc",
         "0.625|131/0.41674999999999995|7"},
    };
}

std::string purchases(const std::string& measures, const std::string& article, const std::string& order) {
    return "select cac_fecha,lac_precio,cac_serie,cac_numero " + measures +
           " ,CAC_ID from cac inner join pro on cac_idpro = pro_id inner join lac on cac_id = lac_idcac where "
           "lac_codart = '" +
           article + "'  and datediff(day,cac_fecha,getdate()) <= 90 order by cac_fecha desc " + order;
}

std::vector<Query> purchaseLists() {
    const auto both = [](const std::string& first, const std::string& second) {
        return "2025-12-20 00:00:00|0.95|A|100|" + first + "|1/2025-10-17 18:00:00|0.9|A|90|" + second + "|2";
    };
    const std::string article = "R-F114";
    return {
        {purchases(",(cast(lac_ancho as nvarchar) + ' X ' + cast(lac_espesor as nvarchar)) as Medidas ", article,
                   ", lac_ancho desc "),
         both("100 X 12.5", "80 X 8")},
        {purchases(",( 'Ø Ext: ' + cast(lac_Dexterior as nvarchar) + ' de ' + cast(lac_largo as nvarchar)) as Medidas ",
                   article, " ,lac_Dexterior desc, lac_largo desc "),
         both("Ø Ext: 65 de 1e+006", "Ø Ext: 60.25 de 3000")},
        {purchases(",( 'de ' + cast(lac_Dexterior as nvarchar)) as Medidas ", article, ",lac_Dexterior desc "),
         both("de 65", "de 60.25")},
        {purchases(",('Ø Ext: ' + cast(lac_dexterior as nvarchar) + ' , Ø Int: ' + cast(lac_dinterior as nvarchar)) as "
                   "Medidas ",
                   article, ",lac_dexterior desc , lac_dinterior desc "),
         both("Ø Ext: 65 , Ø Int: 20", "Ø Ext: 60.25 , Ø Int: 10")},
        {purchases(",('Ø Ext: ' + cast(lac_dexterior as nvarchar) + ' , Ø Int: ' + cast(lac_dinterior as nvarchar)  + "
                   "' de ' + "
                   "cast(lac_largo as nvarchar) ) as Medidas ",
                   article, ",lac_dexterior desc , lac_dinterior desc "),
         both("Ø Ext: 65 , Ø Int: 20 de 1e+006", "Ø Ext: 60.25 , Ø Int: 10 de 3000")},
        {purchases(",('Por Cantidad') as Medidas ", article, ""), both("Por Cantidad", "Por Cantidad")},
        {purchases(",('Por Cantidad') as Medidas ", "O''HARA", ""), "2025-12-20 00:00:00|2.0|A|100|Por Cantidad|1"},
        {"Select art_cod, art_des,art_for from art where art_id = 1", "R-F114|Redondo F-114|2"},
    };
}

std::vector<Query> documents() {
    const std::string prefix = "DOCVELMORA.dbo.";
    return {
        {"Select dex_id,dex_fic from " + prefix + "dex where dex_idExp =1 and dex_idAct=9 order by dex_id desc",
         "1|plano.pdf"},
        {"Select Dex_Doc,Dex_Fic from " + prefix + "Dex where Dex_Id= 1", "NULL|plano.pdf"},
        {"Select isnull(max(dex_id),1) from " + prefix + "dex", "1"},
        {"select * from " + prefix + "Dex where Dex_Id= 1", "1|1|9|NULL|plano.pdf|pdf|1|1|0.0|2026-01-15 10:00:00"},
    };
}

const std::string createGears =
    "CREATE TABLE [dbo].[ENG] ("
    "[ENG_Id] [numeric](18, 0) IDENTITY (1, 1) NOT NULL ,"
    "[ENG_Tipo] [int] NOT NULL ,"
    "[ENG_Modulo] [float] NOT NULL ,"
    "[ENG_Z]   [float] NOT NULL,"
    "[ENG_Paso]  [float] NOT NULL ,"
    "[ENG_Dp]  [float] NOT NULL ,"
    "[ENG_Di] [float] NOT NULL,"
    "[ENG_De]  [float] NOT NULL ,"
    "[ENG_Dm] [float] NOT NULL ,"
    "[ENG_D1]  [float] NOT NULL ,"
    "[ENG_H] [float] NOT NULL,"
    "[ENG_A]  [float] NOT NULL ,"
    "[ENG_B] [float] NOT NULL ,"
    "[ENG_C] [float] NOT NULL "
    " ) ON [PRIMARY]";
const std::string gearsKey =
    "ALTER TABLE [dbo].[ENG] WITH NOCHECK ADD "
    "CONSTRAINT [PK_ENG] PRIMARY KEY  CLUSTERED "
    "( [ENG_Id] )  ON [PRIMARY]";
const std::string addRackFlag = "ALTER TABLE PARDPI ADD [PARDPI_CRE] [bit] NOT NULL DEFAULT 0 WITH VALUES ";
const std::string addToProposals =
    "ALTER TABLE DPI ADD "
    "[Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES ,"
    "[DPI_HERRAMIENTA] [nvarchar] (15) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES ,"
    "[Dpi_Acopla] [int] NOT NULL DEFAULT 0 WITH VALUES ,"
    "[DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES ,"
    "[DPI_ProTex] [nvarchar] (35) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES ";

class Statements : public testing::Test {
  protected:
    void upgrade() {
        for (const std::string& statement : {addRackFlag, addToProposals, createGears, gearsKey}) {
            connection->execute(statement);
        }
        connection->execute(
            "INSERT INTO ENG "
            "(ENG_Tipo,ENG_Modulo,ENG_Z,ENG_De,ENG_Dp,ENG_Di,ENG_Dm,ENG_D1,ENG_A,ENG_B,ENG_C,ENG_Paso,ENG_H) "
            "VALUES (0,2,20,44,40,35,30,25,10.5,5,5.5,6.2832,50)");
    }

    void expectAnswers(const std::vector<Query>& queries) {
        for (const Query& query : queries) {
            EXPECT_EQ(shown(connection->execute(query.text)), query.answer) << query.text;
        }
    }

    std::string answer(const std::string& text) { return shown(connection->execute(text)); }

    std::unique_ptr<sql::Connection> connection = openSampleDatabase();
};

}  // namespace

TEST_F(Statements, UpgradeAddsWhatIsMissingAndFillsRows) {
    EXPECT_EQ(connection->execute("Select top 1 * from dpi").columns().size(), 27u);
    try {
        connection->execute("Select top 1 * from ENG");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::missingTable);
    }
    upgrade();
    EXPECT_EQ(connection->execute("Select top 1 * from dpi").columns().size(), 32u);
    EXPECT_EQ(connection->execute("Select top 1 * from ENG").columns().size(), 14u);
    EXPECT_EQ(connection->execute("Select top 1 * from PARDPI").columns().back().name, "PARDPI_CRE");
    EXPECT_EQ(answer("select Dpi_Modulo, DPI_HERRAMIENTA, Dpi_Acopla, DPI_EXTRA, DPI_ProTex from DPI"),
              "0.0||0||/0.0||0||");
}

TEST_F(Statements, UpgradeAddsSingleColumns) {
    connection->execute(
        "ALTER TABLE DPI ADD [DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH "
        "VALUES ");
    connection->execute(
        "ALTER TABLE DPI ADD [Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES ,[Dpi_Acopla] [int] NOT NULL DEFAULT "
        "0 WITH VALUES ");
    EXPECT_EQ(answer("select top 1 dpi_extra, DPI_MODULO, dpi_acopla from dpi"), "|0.0|0");
}

TEST_F(Statements, MaintenanceForms) {
    upgrade();
    expectAnswers(maintenance());
    expectAnswers(gearFilters());
}

TEST_F(Statements, DimensionConstants) {
    expectAnswers(dimensions());
}

TEST_F(Statements, Proposals) {
    upgrade();
    expectAnswers(proposals());
}

TEST_F(Statements, HistoryWithAnEmptyFieldIsRefused) {
    upgrade();
    EXPECT_THROW(connection->execute(
                     history + " WHERE DPI_Z = 0 And DPI_Pas =  And DPI_Ac =  And DPI_Rodillo =  And Dpi_Tipo = 0"),
                 sql::DbError);
}

TEST_F(Statements, TrackingList) {
    upgrade();
    const auto keys = [&](const std::string& clause) {
        std::string all;
        for (sql::Recordset rows = connection->execute(tracking + clause); !rows.eof(); rows.moveNext()) {
            all += rows["DPI_Id"].toText() + rows["Tipo"].toText() + " ";
        }
        return all;
    };
    const std::string first = "1Piñon Especial ", second = "2Cremallera ";
    EXPECT_EQ(keys(" Where  (DPI_id = -1)  AND  ( DPI_FAcepta is null )  Order by DPI_Fecha DESC "), "");
    EXPECT_EQ(keys(" Where  ( DPI_FAcepta is null )  Order by DPI_Fecha DESC "), first);
    EXPECT_EQ(keys(" Where  ( not DPI_FAcepta is null )  AND dpi_tipo=13  Order by DPI_Fecha DESC "), second);
    EXPECT_EQ(keys(" Where  (DPI_CodCliente BETWEEN 1001 and 1002)  Order by DPI_Fecha DESC"), first + second);
    EXPECT_EQ(keys(" Where  (DPI_CodCliente = 1002 )  Order by DPI_Fecha DESC"), second);
    EXPECT_EQ(keys(" Where  (DPI_Fecha BETWEEN '10/01/2026 00:00:00' and '10/01/2026 23:59:00')  AND dpi_tipo=13  "
                   "Order by DPI_Fecha DESC"),
              second);
    EXPECT_EQ(keys(" Where  (DPI_CodCliente = 1001 )  AND  (DPI_Fecha BETWEEN '15/01/2026 00:00:00' and '15/01/2026 "
                   "23:59:00')  AND  "
                   "( DPI_FAcepta is null )  AND dpi_tipo=0  Order by DPI_Fecha DESC "),
              first);
    EXPECT_EQ(keys(" Where  (DPI_id BETWEEN 1 and 2)  Order by DPI_Fecha DESC"), first + second);
    EXPECT_EQ(keys(" Where  (DPI_id = 2 )  Order by DPI_Fecha DESC"), second);
    EXPECT_EQ(keys(" Where  (DPI_acopla = 1 )  Order by DPI_Fecha DESC"), "");
    EXPECT_EQ(keys("where dpi_tipo=0 Order by DPI_Fecha DESC "), first);
    EXPECT_EQ(keys("where dpi_id <> 0 Order by DPI_Fecha DESC "), first + second);
    EXPECT_EQ(keys(" WHERE Dpi_Tipo = 0 AND  DPI_Z = 38 AND  DPI_Pas = 12.7 AND  DPI_ac = 7.75 AND  DPI_Rodillo = 7.75 "
                   "AND  DPI_Modulo = "
                   "0 AND  DPI_Eje = 24 AND  ( DPI_FAcepta is null ) "),
              first);
    EXPECT_EQ(keys(" WHERE Dpi_Tipo = 13 AND  ( not DPI_FAcepta is null ) "), second);
    EXPECT_EQ(keys(" WHERE Dpi_Tipo = 13 "), second);
}

TEST_F(Statements, TrackingListKeepsEveryColumnByPosition) {
    upgrade();
    const sql::Recordset rows = connection->execute(tracking + "where dpi_id <> 0 Order by DPI_Fecha DESC ");
    ASSERT_EQ(rows.columns().size(), 9u + 32u);
    EXPECT_EQ(rows[std::size_t{0}], sql::Value("Piñon Especial"));
    EXPECT_EQ(rows[std::size_t{1}], sql::Value(1));
    EXPECT_EQ(rows[std::size_t{9}], sql::Value(1));
    EXPECT_EQ(rows["DPI_RODILLO"], sql::Value(7.75));
}

TEST_F(Statements, LabourRiskAndOrders) {
    expectAnswers(labourAndOrders());
}

TEST_F(Statements, PurchasesOfNinetyDays) {
    expectAnswers(purchaseLists());
}

TEST_F(Statements, Documents) {
    expectAnswers(documents());
}

TEST_F(Statements, SavingAProposal) {
    upgrade();
    connection->beginTrans();
    connection->execute(
        "INSERT INTO DPI "
        "(DPI_Tipo,DPI_CodCliente,DPI_NomCliente,DPI_Obser,DPI_Z,DPI_PDM_Tipo,DPI_PDM_Texto,DPI_HERRAMIENTA,DPI_Extra) "
        "VALUES (4,1001,N'O''Hara e hijos',N'línea',21.5, Null ,N'ISO 1/2''''',N'Broca',N'')");
    EXPECT_EQ(answer("SELECT MAX(DPI_Id) FROM DPI"), "3");
    EXPECT_EQ(answer("SELECT DPI_Fecha,DPI_CosteCorteDisco FROM DPI where DPI_Id = 3"), "2026-01-15 10:00:00|8.2");
    connection->commitTrans();
    connection->execute(
        "UPDATE DPI SET DPI_NomCliente=N'Otro',DPI_Z=22,DPI_PDM_Tipo=1,DPI_Unidades=2.5 Where DPI_Id = 3");
    EXPECT_EQ(answer("select DPI_NomCliente, DPI_Z, DPI_PDM_Tipo, DPI_PDM_Texto, DPI_Unidades from DPI where DPI_ID=3"),
              "Otro|22.0|1|ISO 1/2''|2.5");
}

TEST_F(Statements, DuplicatingAndDeletingAProposal) {
    connection->execute(
        "INSERT INTO DPI (DPI_Tipo,DPI_CodCliente,DPI_FechaEntrega,DPI_RefCli) VALUES (0,1001,'20260115 10:00:00', "
        "Null )");
    connection->execute(
        "insert into modpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) values "
        "(3,5,131,15,30,0.25,7.5)");
    EXPECT_EQ(answer("SELECT * FROM moDPI where moDPI_dpi = 3"), "3|3|5|131|15.0|30.0|0.25|7.5");
    EXPECT_EQ(answer("select DPI_FechaEntrega from dpi where dpi_id = 3"), "2026-01-15 10:00:00");
    connection->execute("delete from dpi where dpi_id = 3");
    EXPECT_EQ(answer("SELECT MAX(DPI_Id) FROM DPI"), "2");
    connection->execute("insert into dpi (dpi_tipo) values (1)");
    EXPECT_EQ(answer("SELECT MAX(DPI_Id) FROM DPI"), "4");
}

TEST_F(Statements, AcceptingAProposal) {
    connection->beginTrans();
    EXPECT_EQ(answer("Select max(orden_NUM) FROM ORDEN"), "500");
    connection->execute(
        "INSERT INTO ORDEN (ORDEN_NUM,ORDEN_SER,ORDEN_CLI,ORDEN_NOM,ORDEN_REF,ORDEN_INI,ORDEN_ADE,ORDEN_PLA,ORDEN_PRE) "
        "VALUES "
        "(501,N'0',1001,N'TALLERES NORTE SL',N'',convert(datetime,'15/01/2026',103),N'',Null,30.49)");
    connection->commitTrans();
    connection->execute(
        "UPDATE DPI SET DPI_Orden=501,DPI_FAcepta= getdate() "
        ",DPI_FPedCliente=convert(datetime,'12/01/2026',103),DPI_FechaEntrega= Null "
        ",DPI_PedCliente=N'P-9',DPI_RefCli=N'' where dpi_id = 1");
    EXPECT_EQ(
        answer(
            "select DPI_Orden,DPI_FAcepta,DPI_FPedCliente,DPI_FechaEntrega,DPI_PedCliente from dpi where dpi_id = 1"),
        "501|2026-01-15 10:00:00|2026-01-12 00:00:00|NULL|P-9");
    EXPECT_EQ(answer("Select orden_id FROM ORDEN where orden_num=501"), "2");
    connection->execute("INSERT INTO OrdPiñones (Opi_OrdId,Opi_Pas,Opi_Die) VALUES (2,12.7,38)");
    EXPECT_EQ(answer("SELECT MAX(Opi_Id) FROM OrdPiñones"), "2");
    connection->execute(
        "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
        "(1,1,2,501,131,1,5)");
    EXPECT_EQ(answer("select isnull(max(rut_mpos),0)+1 from rut where rut_maq =131"), "6");
}

TEST_F(Statements, DeletingRowsOfTheForms) {
    connection->execute("DELETE FROM PARDPI WHERE PARDPI_Id = 2");
    connection->execute("Delete from modpi where modpi_id = 2");
    connection->execute("delete from DOCVELMORA.dbo.dex where dex_id = 1");
    EXPECT_EQ(answer("select count(*) from PARDPI"), "1");
    EXPECT_EQ(answer("select count(*) from MoDpi"), "1");
    EXPECT_EQ(answer("select count(*) from DOCVELMORA.dbo.dex"), "0");
}

TEST_F(Statements, ACountOverATextThatIsNoNumberIsRefused) {
    try {
        connection->execute("Select Count(*) from dpi where DPI_IdParDisco=NUEVO Or DPI_IdParCubo = NUEVO");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::syntax);
        EXPECT_NE(error.description().find("NUEVO"), std::string::npos);
    }
}

}  // namespace velmora::test
