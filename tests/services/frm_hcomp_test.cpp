#include "velmora/services/frm_hcomp.h"

#include <gmock/gmock.h>

#include "services_bench.h"

namespace velmora::services {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Records what it was asked to show.
class WatchedNotes final : public components::DeliveryNotes {
  public:
    explicit WatchedNotes(std::vector<std::string>& told) : told_(told) {}
    void setMyBd(session::Session&) override { told_.emplace_back("MyBd"); }
    void jLoad(std::int32_t id, bool flag) override {
        told_.push_back("jLoad " + std::to_string(id) + (flag ? " True" : " False"));
    }

  private:
    std::vector<std::string>& told_;
};

class FrmHcompTest : public ServicesTest {
  protected:
    FrmHcompTest() {
        components.add("SORVEL.SORVELCOMP", [this] { return std::make_unique<WatchedNotes>(told); });
        store("INSERT INTO PRO (PRO_ID) VALUES (4)");
    }

    void store(const std::string& statement) { database->execute(statement); }
    /// A delivery note with this date.
    void note(int id, const char* day) {
        store("INSERT INTO CAC (CAC_ID,CAC_FECHA,CAC_SERIE,CAC_NUMERO,CAC_IDPRO) VALUES (" + std::to_string(id) + ",'" +
              day + " 00:00:00',N'A'," + std::to_string(5000 + id) + ",4)");
    }
    /// Width, thickness, outside, inner diameter, length.
    void line(int note, const char* article, const char* price, const char* measures = "1,2,3,4,5") {
        store(
            "INSERT INTO LAC (LAC_IDCAC,LAC_CODART,LAC_PRECIO,LAC_ANCHO,LAC_ESPESOR,LAC_DEXTERIOR,LAC_DINTERIOR,"
            "LAC_LARGO) VALUES (" +
            std::to_string(note) + ",N'" + article + "'," + price + "," + measures + ")");
    }
    void load(int formula, const char* code = "ART") {
        form.nFormula = formula;
        form.txtFields(0).setText(code);
        connection.clear();
        form.msCargar();
    }
    std::vector<std::string> column(std::size_t shown) {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < form.dbgCompras.rowCount(); ++i) {
            all.push_back(form.dbgCompras.cellText(i, shown));
        }
        return all;
    }
    std::vector<std::string> numbers() { return column(3); }
    std::vector<std::string> measures() { return column(4); }

    std::vector<std::string> told;
    frmHcomp form{session, desk};
};

TEST_F(FrmHcompTest, EachFormulaHasItsStatement) {
    const std::string head = "select cac_fecha,lac_precio,cac_serie,cac_numero ";
    const std::string from =
        " ,CAC_ID from cac inner join pro on cac_idpro = pro_id inner join lac on cac_id = lac_idcac where lac_codart "
        "= 'ART'  and datediff(day,cac_fecha,getdate()) <= 90 order by cac_fecha desc ";
    const std::pair<const char*, const char*> pieces[] = {
        {",('Por Cantidad') as Medidas ", ""},
        {",(cast(lac_ancho as nvarchar) + ' X ' + cast(lac_espesor as nvarchar)) as Medidas ", ", lac_ancho desc "},
        {",( 'Ø Ext: ' + cast(lac_Dexterior as nvarchar) + ' de ' + cast(lac_largo as nvarchar)) as Medidas ",
         " ,lac_Dexterior desc, lac_largo desc "},
        {",( 'de ' + cast(lac_Dexterior as nvarchar)) as Medidas ", ",lac_Dexterior desc "},
        {",('Ø Ext: ' + cast(lac_dexterior as nvarchar) + ' , Ø Int: ' + cast(lac_dinterior as nvarchar)) as Medidas ",
         ",lac_dexterior desc , lac_dinterior desc "},
        {",('Por Cantidad') as Medidas ", ""},
        {",('Ø Ext: ' + cast(lac_dexterior as nvarchar) + ' , Ø Int: ' + cast(lac_dinterior as nvarchar)  + ' de ' + "
         "cast(lac_largo as nvarchar) ) as Medidas ",
         ",lac_dexterior desc , lac_dinterior desc "},
        {",('Por Cantidad') as Medidas ", ""},
    };
    for (int formula = 0; formula < 8; ++formula) {
        load(formula);
        const auto& [shown, order] = pieces[formula];
        EXPECT_THAT(connection.log(), ElementsAre(head + shown + from + order)) << formula;
    }
}

TEST_F(FrmHcompTest, EachFormulaTellsItsMeasures) {
    note(1, "15/01/2026");
    line(1, "ART", "1.5", "60,12.5,101.6,81.6,6000");
    const char* expected[] = {"Por Cantidad",
                              "60 X 12.5",
                              "Ø Ext: 101.6 de 6000",
                              "de 101.6",
                              "Ø Ext: 101.6 , Ø Int: 81.6",
                              "Por Cantidad",
                              "Ø Ext: 101.6 , Ø Int: 81.6 de 6000",
                              "Por Cantidad"};
    for (int formula = 0; formula < 8; ++formula) {
        load(formula);
        EXPECT_THAT(measures(), ElementsAre(expected[formula])) << formula;
    }
    store("update LAC set LAC_ESPESOR = null");
    load(1);
    EXPECT_THAT(measures(), ElementsAre("")) << "a measure that is missing leaves them empty";
}

TEST_F(FrmHcompTest, ThePriceHasTheDecimalsOfTheSession) {
    note(1, "15/01/2026");
    line(1, "ART", "0.98765");
    load(0);
    EXPECT_EQ(form.dbgCompras.cellText(0, 1), "0,9877");
    session.setParametro("par_decprecom", 2);
    load(0);
    EXPECT_EQ(form.dbgCompras.cellText(0, 1), "0,99");
    session.setParametro("par_decprecom", 0);
    load(0);
    EXPECT_EQ(form.dbgCompras.columns()[1].mask, "#0.");
    session.setParametro("par_decprecom", {});
    load(0);
    EXPECT_EQ(form.dbgCompras.cellText(0, 1), "0,99") << "a host without the setting";
    session.setParametro("par_decprecom", -3);
    EXPECT_NO_THROW(load(0));
}

TEST_F(FrmHcompTest, TheGridHasItsShape) {
    struct Shape {
        const char* caption;
        int width;
        const char* mask;
        bool right;
        bool button;
    };
    const Shape expected[] = {{"Fecha", 1100, "dd/mm/yyyy", true, false},
                              {"Precio", 1000, "#0.0000", true, false},
                              {"Serie", 1000, "", false, false},
                              {"Numero", 1000, "", false, true},
                              {"Medidas", 2200, "", false, false}};
    load(0);
    const auto& columns = form.dbgCompras.columns();
    ASSERT_EQ(columns.size(), 6U);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(columns[i].caption, expected[i].caption);
        EXPECT_EQ(columns[i].width, expected[i].width);
        EXPECT_EQ(columns[i].mask, expected[i].mask);
        EXPECT_EQ(columns[i].right, expected[i].right);
        EXPECT_EQ(columns[i].button, expected[i].button);
        EXPECT_TRUE(columns[i].visible);
    }
    EXPECT_FALSE(columns[5].visible);
    EXPECT_EQ(form.caption(), "Relación de ultimos precios de compra");
    EXPECT_TRUE(form.txtFields(0).locked());
}

TEST_F(FrmHcompTest, APurchaseOfExactlyNinetyDaysAgoIsListed) {
    note(1, "17/10/2025");  // 90 days before 15/01/2026
    note(2, "16/10/2025");
    note(3, "15/01/2026");
    for (const int each : {1, 2, 3}) {
        line(each, "ART", "1");
    }
    load(0);
    EXPECT_THAT(numbers(), ElementsAre("5003", "5001"));
    EXPECT_THAT(column(0), ElementsAre("15/01/2026", "17/10/2025"));
    EXPECT_THAT(column(2), ElementsAre("A", "A"));
}

TEST_F(FrmHcompTest, AnArticleNotBoughtLatelyGivesAnEmptyGridAndNoMessage) {
    note(1, "01/06/2025");
    line(1, "ART", "1");
    load(2);
    EXPECT_THAT(numbers(), IsEmpty());
    EXPECT_THAT(screen.messages, IsEmpty());
    form.dbgCompras.onButtonClick(3);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(FrmHcompTest, ACodeWithAnApostropheIsFoundAndBlanksAroundItDoNotCount) {
    note(1, "15/01/2026");
    line(1, "CAS-1/2''", "0.3");
    line(1, "CAS-1/2", "9");
    load(0, "  CAS-1/2' ");
    EXPECT_THAT(column(1), ElementsAre("0,3000"));
    EXPECT_THAT(connection.logged("lac_codart = 'CAS-1/2'''"), ::testing::SizeIs(1));
}

TEST_F(FrmHcompTest, RowsOfOneDayComeLargestFirst) {
    note(1, "10/01/2026");
    note(2, "12/01/2026");
    line(1, "ART", "1", "90,9,90,9,9");
    line(2, "ART", "2", "10,1,10,1,100");
    line(2, "ART", "3", "30,1,30,1,100");
    line(2, "ART", "4", "30,2,30,2,300");
    load(1);
    EXPECT_THAT(measures(),
                ElementsAre(::testing::StartsWith("30 X"), ::testing::StartsWith("30 X"), "10 X 1", "90 X 9"));
    load(2);
    EXPECT_THAT(measures(), ElementsAre("Ø Ext: 30 de 300", "Ø Ext: 30 de 100", "Ø Ext: 10 de 100", "Ø Ext: 90 de 9"));
    load(3);
    EXPECT_THAT(measures(), ElementsAre("de 30", "de 30", "de 10", "de 90"));
    for (const int formula : {4, 6}) {
        load(formula);
        EXPECT_THAT(column(1), ElementsAre("4,0000", "3,0000", "2,0000", "1,0000")) << formula;
    }
}

TEST_F(FrmHcompTest, ByQuantityOnlyTheDateCounts) {
    note(1, "10/01/2026");
    note(2, "12/01/2026");
    line(1, "ART", "1", "90,9,90,9,9");
    line(2, "ART", "2", "10,1,10,1,100");
    for (const int formula : {0, 5}) {
        load(formula);
        EXPECT_THAT(column(1), ElementsAre("2,0000", "1,0000")) << formula;
        EXPECT_THAT(measures(), ElementsAre("Por Cantidad", "Por Cantidad")) << formula;
    }
}

TEST_F(FrmHcompTest, OnlyTheNumbersButtonOpensTheNote) {
    note(1, "10/01/2026");
    note(2, "12/01/2026");
    line(1, "ART", "1");
    line(2, "ART", "2");
    load(0);
    for (const int other : {0, 1, 2, 4, 5}) {
        form.dbgCompras.onButtonClick(other);
    }
    EXPECT_THAT(told, IsEmpty());
    form.dbgCompras.onButtonClick(3);
    form.dbgCompras.moveToRow(1);
    form.dbgCompras.onButtonClick(3);
    EXPECT_THAT(told, ElementsAre("MyBd", "jLoad 2 True", "MyBd", "jLoad 1 True"));
}

TEST_F(FrmHcompTest, BeforeAnythingIsLoadedTheGridIsEmptyUnderItsHeadings) {
    EXPECT_EQ(form.dbgCompras.rowCount(), 0U);
    EXPECT_EQ(form.dbgCompras.columns().size(), 6U);
    EXPECT_NO_THROW(form.dbgCompras.onButtonClick(3));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(FrmHcompTest, ANoteWithoutItsComponentIsAnError) {
    components::ComponentFactory none;
    platform::Desk bare{screen, none, services, clock};
    frmHcomp other(session, bare);
    note(1, "10/01/2026");
    line(1, "ART", "1");
    other.txtFields(0).setText("ART");
    other.msCargar();
    EXPECT_THROW(other.dbgCompras.onButtonClick(3), runtime::RuntimeError);
}

TEST_F(FrmHcompTest, AnArticleIsTakenByItsKey) {
    store("INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For) VALUES (8,N'R-F114',N'Redondo',2)");
    store("INSERT INTO ART (ART_ID,ART_COD) VALUES (9,N'SOLO')");
    connection.clear();
    form.msArticulo(8);
    EXPECT_THAT(connection.log(), ElementsAre("Select art_cod, art_des,art_for from art where art_id = 8"));
    EXPECT_EQ(form.txtFields(0).text(), "R-F114");
    EXPECT_EQ(form.txtFields(1).text(), "Redondo");
    EXPECT_EQ(form.nFormula, 2);
    form.msArticulo(9);
    EXPECT_EQ(form.txtFields(1).text(), "");
    EXPECT_EQ(form.nFormula, 0);
    form.msArticulo(8);
    form.msArticulo(77);
    EXPECT_EQ(form.txtFields(0).text(), "");
    EXPECT_EQ(form.txtFields(1).text(), "");
    EXPECT_EQ(form.nFormula, 0);
}

TEST_F(FrmHcompTest, ButtonAndEscapeClose) {
    form.keyDown(screen::Key::escape);
    EXPECT_TRUE(form.isUnloaded());
    frmHcomp other(session, desk);
    other.cmdSalir.onClick();
    EXPECT_TRUE(other.isUnloaded());
}

}  // namespace
}  // namespace velmora::services
