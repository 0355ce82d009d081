#include <set>
#include <string>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/chains.h"
#include "velmora/data/new_database.h"
#include "velmora/data/product_types.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::data {
namespace {

const runtime::Date demoNow = runtime::Date::of(2026, 1, 15, 10, 0, 0);

/// One workshop for all tests: they only read it.
class DemoRows : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        connection = sqlite::openDatabase(":memory:", {.clock = [] { return demoNow; }});
        createDatabase(*connection);
        fillDemo(*connection, demoNow);
    }
    static void TearDownTestSuite() { connection.reset(); }

    static sql::Recordset run(std::string_view statement) { return connection->execute(statement); }
    static std::int32_t count(std::string_view from) {
        return run("select count(*) from " + std::string(from))[0].toLong();
    }
    /// Every value of a first column.
    static std::set<std::int32_t> values(std::string_view statement) {
        std::set<std::int32_t> found;
        for (sql::Recordset rows = run(statement); !rows.eof(); rows.moveNext()) {
            found.insert(rows[0].toLong());
        }
        return found;
    }

    static std::unique_ptr<sql::Connection> connection;
};

std::unique_ptr<sql::Connection> DemoRows::connection;

TEST_F(DemoRows, EveryArticleFormulaIsThere) {
    EXPECT_EQ(values("select ART_For from ART"), (std::set<std::int32_t>{0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(DemoRows, MaterialsServeDiscsHubsAndRacks) {
    EXPECT_GE(count("PARDPI where PARDPI_DISCO=1 and PARDPI_CRE=0"), 3);
    EXPECT_GE(count("PARDPI where PARDPI_DISCO=0 and PARDPI_CRE=0"), 3);
    EXPECT_GE(count("PARDPI where PARDPI_CRE=1"), 1);
    EXPECT_GE(count("PARDPI where PARDPI_HIERRO=1"), 1);
    EXPECT_EQ(count("PARDPI inner join ART on PARDPI_ART = ART_ID where PARDPI_CRE=1 and ART_For<>1"), 0);
    EXPECT_EQ(count("PARDPI inner join ART on PARDPI_ART = ART_ID inner join materiales on mat_id = ART_Mat"),
              count("PARDPI"));
}

TEST_F(DemoRows, ConstantsCoverEveryPitchDiameter) {
    for (const int kind : {1, 2}) {
        for (const double dp : {0.0, 37.5, 120.0, 599.99, 1200.0, 5000.0}) {
            EXPECT_TRUE(run("SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = " +
                            std::to_string(kind) + " and Calculos_Valor1<=" + runtime::shortest(dp) +
                            " and Calculos_Valor2>=" + runtime::shortest(dp) + " order by Calculos_Valor2 ")
                            .hasRows())
                << kind << " " << dp;
        }
    }
}

TEST_F(DemoRows, EveryChainHasValuesUnderItsTitle) {
    for (std::size_t i = 0; i < chains.size(); ++i) {
        const sql::Recordset row = run("Select * from PDM where PDm_tipo = " + std::to_string(i) + " AND PDm_z=17");
        ASSERT_TRUE(row.hasRows()) << chains[i];
        EXPECT_EQ(row["PDM_Titulo"].toText(), "Piñon " + std::string(chains[i]) + " Doble Z17");
        EXPECT_EQ(row.recordCount(), 1U);
    }
}

TEST_F(DemoRows, ChainValuesHoldTheTrueGapAndTheRulesOfTheirForm) {
    for (sql::Recordset row = run("select * from PDM"); !row.eof(); row.moveNext()) {
        const auto value = [&](const char* column) { return row[column].toDouble(); };
        ASSERT_DOUBLE_EQ(value("PDM_X"), runtime::Redondear(value("PDM_b2") - 2 * value("PDM_b1"), 2));
        ASSERT_DOUBLE_EQ(value("PDM_Df"), runtime::Redondear(value("PDM_Dp") - value("PDM_Rodillo"), 2));
        ASSERT_GT(value("PDM_De"), value("PDM_Dp")) << row["PDM_Titulo"].toText();
        ASSERT_GT(value("PDM_Df"), value("PDM_Dm")) << row["PDM_Titulo"].toText();
        ASSERT_GT(value("PDM_Dm"), value("PDM_D2")) << row["PDM_Titulo"].toText();
        ASSERT_GT(value("PDM_A"), value("PDM_b2")) << row["PDM_Titulo"].toText();
    }
}

TEST_F(DemoRows, PitchDiametersAreCutNotRounded) {
    // 12.7 / sin(180/19 · 3.1416/180) is 77.1585…
    EXPECT_EQ(run("select PDM_Dp from PDM where PDM_Tipo=1 and PDM_Z=19")[0], sql::Value(77.15));
}

TEST_F(DemoRows, GearsKeepTheRulesOfTheirForm) {
    for (sql::Recordset row = run("select * from ENG"); !row.eof(); row.moveNext()) {
        const auto value = [&](const char* column) { return row[column].toDouble(); };
        const double module = value("ENG_Modulo");
        ASSERT_DOUBLE_EQ(value("ENG_Paso"), runtime::Redondear(module * 3.1416, 2));
        ASSERT_DOUBLE_EQ(value("ENG_Dp"), runtime::Redondear(value("ENG_Z") * module, 2));
        ASSERT_DOUBLE_EQ(value("ENG_De"), runtime::Redondear(value("ENG_Dp") + 2 * module, 2));
        ASSERT_DOUBLE_EQ(value("ENG_Di"), runtime::Redondear(value("ENG_Dp") - 2.5 * module, 2));
        ASSERT_DOUBLE_EQ(value("ENG_C"), value("ENG_A") - value("ENG_B"));
        ASSERT_GT(value("ENG_H"), 0);
        ASSERT_GT(value("ENG_D1"), 0);
    }
    EXPECT_EQ(values("select ENG_Tipo from ENG"), (std::set<std::int32_t>{0, 1}));
}

TEST_F(DemoRows, PurchasesLieOnBothSidesOfNinetyDays) {
    EXPECT_GT(count("CAC where datediff(day,cac_fecha,getdate()) = 90"), 0);
    EXPECT_GT(count("CAC where datediff(day,cac_fecha,getdate()) = 91"), 0);
    EXPECT_GT(count("CAC where datediff(day,cac_fecha,getdate()) < 90"), 20);
    EXPECT_EQ(count("CAC where datediff(day,cac_fecha,getdate()) < 0"), 0);
}

TEST_F(DemoRows, CustomersStandOnEverySideOfTheirLimit) {
    const std::string debt =
        "isnull((select round(sum(rec_importe),2) FROM REC where rec_sit IN('1','2','3','4') AND Rec_IdClPr = "
        "cli.cli_id),0)";
    EXPECT_GT(count("CLI where CLI_Riesgo=0"), 3);
    EXPECT_GT(count("CLI where CLI_Riesgo is null"), 0);
    EXPECT_GT(count("CLI where CLI_Riesgo=1 and CLI_ImpMaxRiesgo is null"), 0);
    EXPECT_GT(count("CLI where CLI_Riesgo=1 and " + debt + " = CLI_ImpMaxRiesgo"), 0);
    EXPECT_GT(count("CLI where CLI_Riesgo=1 and " + debt + " > CLI_ImpMaxRiesgo"), 0);
    EXPECT_GT(count("CLI where CLI_Riesgo=1 and " + debt + " < CLI_ImpMaxRiesgo"), 3);
}

TEST_F(DemoRows, ProposalsAreOfManyTypesPendingAndAccepted) {
    EXPECT_GE(count("DPI"), 300);
    EXPECT_GT(count("DPI where DPI_FAcepta is null"), 100);
    EXPECT_GT(count("DPI where DPI_FAcepta is not null"), 100);
    const auto types = values("select DPI_Tipo from DPI");
    EXPECT_GE(types.size(), 10U);
    for (const std::int32_t type : types) {
        EXPECT_NE(findProductType(type), nullptr) << type;
    }
    EXPECT_EQ(count("DPI where DPI_FAcepta > getdate()"), 0);
    EXPECT_EQ(count("DPI where DPI_FAcepta < DPI_Fecha"), 0);
}

TEST_F(DemoRows, ProposalsAddUp) {
    for (sql::Recordset row = run("select * from DPI"); !row.eof(); row.moveNext()) {
        const auto value = [&](const char* column) { return row[column].toDouble(); };
        const std::string id = row["DPI_Id"].toText();
        const double material = row["DPI_Tipo"].toLong() == 13
                                    ? value("DPI_DisImporte")
                                    : runtime::Redondear(value("DPI_DisImporte") + value("DPI_CubImporte"), 2);
        EXPECT_DOUBLE_EQ(value("DPI_ImpMat"), material) << id;
        const double piece = runtime::Redondear(value("DPI_ImpMat") + value("DPI_FijoSierra") + value("DPI_ImpMO") +
                                                    value("DPI_ImpTS") + value("DPI_ImpVA"),
                                                2);
        EXPECT_DOUBLE_EQ(value("DPI_ImpTP"), piece) << id;
        EXPECT_DOUBLE_EQ(value("DPI_Importe"), runtime::Redondear(piece * value("DPI_Unidades"), 2)) << id;
        const double labour =
            run("Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = " + id)[0].toDouble();
        EXPECT_DOUBLE_EQ(value("DPI_ImpMO"), runtime::Redondear(labour, 2)) << id;
    }
}

TEST_F(DemoRows, PlainSprocketsFollowFromTheirToothing) {
    int seen = 0;
    for (sql::Recordset row = run("select * from DPI where DPI_Tipo in (0,1,2)"); !row.eof(); row.moveNext()) {
        const auto value = [&](const char* column) { return row[column].toDouble(); };
        EXPECT_DOUBLE_EQ(value("DPI_DmFon"), runtime::CDbl(runtime::CStr(value("DPI_DmPri") - value("DPI_Rodillo"))));
        EXPECT_DOUBLE_EQ(value("DPI_DisCortDM"), value("DPI_DmExt") + 5);
        if (row["DPI_Tipo"].toLong() == 0) {
            EXPECT_DOUBLE_EQ(value("DPI_AnchoTotal"), value("DPI_Llanta") + value("DPI_AnchoCubo"));
        }
        ++seen;
    }
    EXPECT_GT(seen, 100);
}

TEST_F(DemoRows, EveryAcceptedProposalHasItsOrderAndPapers) {
    EXPECT_EQ(count("DPI where DPI_FAcepta is not null and DPI_Orden is null"), 0);
    EXPECT_EQ(count("ORDEN"), count("DPI where DPI_FAcepta is not null"));
    EXPECT_EQ(count("ORDEN inner join DPI on ORDEN_IdDPI = DPI_Id and ORDEN_NUM = DPI_Orden"), count("ORDEN"));
    EXPECT_EQ(count("OrdPiñones inner join ORDEN on Opi_OrdId = ORDEN_ID"), count("OrdPiñones"));
    EXPECT_EQ(count("OrdPiñones"), count("DPI where DPI_FAcepta is not null and DPI_Tipo <> 13"));
    EXPECT_EQ(count("Mat inner join ORDEN on Mat_Ord = ORDEN_NUM"), count("Mat"));
    EXPECT_EQ(count("RUT inner join ORDEN on RUT_IdOrden = ORDEN_ID and RUT_NumOrden = ORDEN_NUM"), count("RUT"));
    EXPECT_GT(count("RUT where RUT_Maq = 131"), 0);
}

TEST_F(DemoRows, ProposalsReferToWhatIsThere) {
    EXPECT_EQ(count("DPI inner join PARDPI on DPI_IdParDisco = PARDPI_ID and DPI_ArtDisco = PARDPI_ART"), count("DPI"));
    EXPECT_EQ(count("DPI inner join PARDPI on DPI_IdParCubo = PARDPI_ID and DPI_ArtCubo = PARDPI_ART"), count("DPI"));
    EXPECT_EQ(count("DPI inner join CLI on DPI_CodCliente = CLI_COD and DPI_NomCliente = CLI_NOM"), count("DPI"));
    EXPECT_EQ(count("MoDpi inner join MAQ on MoDpi_Maq = MAQ_ID inner join OPE on MoDpi_Ope = OPE_ID"), count("MoDpi"));
}

TEST_F(DemoRows, WorkshopHasTheOddCasesOfItsForms) {
    EXPECT_GT(count("MAQ where MAQ_SEC is null"), 0);
    EXPECT_GT(count("MAQ where MAQ_ID not in (select OBM_MAQ from OBM) and MAQ_ID not in "
                    "(select OPE_MAD from OPE where OPE_MAD is not null)"),
              0);
    EXPECT_EQ(count("MAQ where MAQ_ID = 131"), 1);
    EXPECT_GT(count("ART where ART_COD like '%''%'"), 0);
    EXPECT_GT(count("ART where ART_Corte is null"), 0);
}

}  // namespace
}  // namespace velmora::data
