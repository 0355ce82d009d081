#include "velmora/tracking/acceptance.h"

#include <numeric>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/product_types.h"
#include "velmora/tracking/order_row.h"

#include "acceptance_shop.h"

namespace velmora::tracking {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

const std::string asked = "Realmente desea marcar como aceptado este presupuesto";
const std::string done = "Presupuesto Aceptado, Orden de trabajo nº 1 generada ";

class AcceptanceTest : public ::testing::Test {
  protected:
    /// Accepts one proposal with these columns. Returns the errors that occurred.
    void accepted(const Columns& columns = {}) {
        id = shop.addProposal(columns);
        shop.chooseAndAccept(id);
        EXPECT_THAT(shop.errorTexts(), IsEmpty());
    }
    std::string query(std::string_view sql) { return shop.query(sql); }
    std::vector<std::string> logged(std::string_view part) {
        std::vector<std::string> found;
        for (const std::string& entry : shop.connection.log()) {
            if (entry.find(part) != std::string::npos) {
                found.push_back(entry);
            }
        }
        return found;
    }
    screen::TextBox& panel(Detail field) { return shop.fields.txtPesu(field); }

    AcceptanceShop shop;
    std::int32_t id = 0;
};

TEST_F(AcceptanceTest, SendsTheseStatementsAndNoOthers) {
    id = shop.addProposal();
    shop.addLabour(id, 10, "0.25");
    shop.addLabour(id, 12, "0.5");
    shop.chooseAndAccept(id);
    EXPECT_THAT(
        shop.connection.log(),
        ElementsAre(
            "SELECT (select isnull(round(sum(rec_importe),2),0) FROM REC where rec_sit IN('1','2','3','4') AND "
            "Rec_IdClPr = cli.cli_id)  +  (SELECT isnull(round(sum(lav_importe),2),0) From Cav INNER JOIN Lav ON "
            "Cav_Id = LAv_Idcav WHERE (Cav_Situa =1 or Cav_Situa =3) and cav_idcli = cli.cli_id) AS TOTAL, "
            "CLI_ImpMaxRiesgo,Cli_Riesgo FROM Cli WHERE CLI_COD = 1001",
            "BEGIN", "Select max(orden_NUM) FROM ORDEN", "Select * FROM DPI where dpi_id = 1",
            "Select max(orden_NUM) FROM ORDEN where ORDEN_IdDPI = 1 and orden_NUM >= -99",
            "Select CLI_GtosFinan from cli where cli_cod=1001",
            "Select top 1 art_cod,art_des from art inner join orden on art_cod = orden_art where orden_ref = 'R-77' "
            "order by orden_id desc",
            "INSERT INTO ORDEN (ORDEN_NUM,ORDEN_SER,ORDEN_CLI,ORDEN_NOM,ORDEN_GF,ORDEN_OBS,ORDEN_UNI,ORDEN_REF,"
            "ORDEN_INI,ORDEN_ADE,ORDEN_PLA,ORDEN_PRE,ORDEN_IdDPI,ORDEN_PED,ORDEN_DES) VALUES (1,N'0',1001,"
            "N'TALLERES NORTE SL',1.5,N'Orden generada desde el presupuesto nº 1 , el 15/01/2026 10:00:00',3,N'R-77',"
            "convert(datetime,'15/01/2026',103),N'',Null,35.55,1,N'P-9',"
            "N'Piñon Especial Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24')",
            "COMMIT",
            "UPDATE DPI SET DPI_Orden=1,DPI_FAcepta= getdate() ,DPI_FPedCliente= Null ,DPI_FechaEntrega= Null ,"
            "DPI_PedCliente=N'P-9',DPI_RefCli=N'R-77' where dpi_id = 1",
            "Select orden_id FROM ORDEN where orden_num=1",
            "INSERT INTO OrdPiñones (Opi_OrdId,Opi_Pas,Opi_Die,Opi_Rod,Opi_Anca,Opi_Eje,Opi_Chav,Opi_Pri,Opi_DmPri,"
            "Opi_DmFon,Opi_DmExt,Opi_DmCub,Opi_Alt,Opi_Ancto,Opi_Llanta,Opi_Anccu,Opi_Disdm,Opi_DisGr,Opi_Cubdm,"
            "Opi_CubGr,Opi_PesoDis,Opi_PesoCub) VALUES (1,12.7,38,8.51,7.75,24,8,2,153.8,145.29,161.5,90,8.1,62,7.2,"
            "54.8,165,10,95,57,1.7,3.2)",
            "SELECT MAX(Opi_Id) FROM OrdPiñones", "SELECT * FROM art where art_id = 11",
            "INSERT INTO Mat (Mat_Ord,Mat_Ser,Mat_Art,Mat_Des,Mat_Pco,Mat_Pve,Mat_Can,Mat_Med,Mat_Tca,Mat_Anc,Mat_Esp,"
            "Mat_Dex,Mat_For,Mat_FCA,Mat_Fac,Mat_Mat,Mat_Imp,Mat_Idp,Mat_Uni,Mat_Lar,Mat_Din,MAT_UdCorte,"
            "MAT_LargoCorte,MAT_DmCorte,MAT_CubCorte) VALUES (1,N'0',N'R-114',N'Redondo F-114',0.95,1.4,0,N'Kg',0,1,1,"
            "165,N'2',2,6.17,1,0,1,1,36,1,3,10,165,1)",
            "SELECT * FROM art where art_id = 12",
            "INSERT INTO Mat (Mat_Ord,Mat_Ser,Mat_Art,Mat_Des,Mat_Pco,Mat_Pve,Mat_Uni,Mat_Can,Mat_Med,Mat_Tca,Mat_Lar,"
            "Mat_Anc,Mat_Esp,Mat_Din,Mat_Dex,Mat_For,Mat_FCA,Mat_Fac,Mat_Mat,Mat_Imp,Mat_Idp,MAT_UdCorte,"
            "MAT_LargoCorte,MAT_DmCorte,MAT_CubCorte) VALUES (1,N'0',N'R-140',N'Redondo F-1140',1.02,1.5,1,0,N'Kg',0,"
            "177,1,1,1,95,N'2',2,6.2,2,0,1,3,57,95,2)",
            "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =131",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,1,1,1,131,1,1)",
            "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =131",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,2,1,1,131,1,2)",
            "Select (modpi_tiempo * 3)as Tiempo ,modpi_maq from modpi where modpi_dpi=1 Order by modpi_id asc",
            "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =10",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,3,1,1,10,0.75,1)",
            "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =12",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,4,1,1,12,1.5,1)",
            "COMMIT"));
    EXPECT_THAT(shop.errors, IsEmpty());
    EXPECT_THAT(shop.screen.texts(),
                ElementsAre(asked, "El Material para el Disco será cortado aquí ?\r\nR-114 - Redondo F-114",
                            "El Material para el Cubo será cortado aquí ?\r\nR-140 - Redondo F-1140", done));
}

// --- The gate ------------------------------------------------------------------------------------------------------

TEST_F(AcceptanceTest, WithoutRowsNothingHappens) {
    shop.list(" Where dpi_id = -1");
    shop.accept();
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(AcceptanceTest, AnAcceptedProposalDoesNothingAndSaysNothing) {
    id = shop.addProposal({{"DPI_FAcepta", "getdate()"}, {"DPI_CodCliente", "9999"}});
    shop.chooseAndAccept(id);
    EXPECT_THAT(shop.connection.log(), IsEmpty()) << "the credit is not asked either";
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(shop.count("ORDEN"), "0");
}

TEST_F(AcceptanceTest, ACustomerAtHisLimitIsRefusedWithTheseWords) {
    id = shop.addProposal({{"DPI_CodCliente", "1002"}, {"DPI_Importe", "1000"}});
    shop.chooseAndAccept(id);
    ASSERT_EQ(shop.screen.messages.size(), 1u);
    const screen::MessageBox& box = shop.screen.messages[0];
    EXPECT_EQ(box.title, "Gestión de Riesgos");
    EXPECT_EQ(box.icon, screen::Icon::critical);
    EXPECT_EQ(box.buttons, screen::Buttons::ok);
    EXPECT_EQ(box.text,
              "* * * * * * * * * * A T E N C I Ó N * * * * * * * * * *\r\n"
              "* * * * * * * Cliente con riesgo excedido * * * * * * *\r\n"
              "* *  No es posible crear ordenes para este cliente * *  ");
    EXPECT_EQ(shop.connection.log().size(), 1u);
    EXPECT_EQ(query("select DPI_FAcepta from DPI"), "NULL");
}

TEST_F(AcceptanceTest, TheGateReadsWhatStandsInThePanel) {
    struct Row {
        const char* code;
        const char* amount;
        bool passes;
    };
    for (const Row& row : {Row{"1002", "999,99", true}, Row{"1002", "1000", false}, Row{"1002", "1.000,01", false},
                           Row{"1003", "0", false}, Row{"9999", "1", false}, Row{"1001", "5000000", true}}) {
        shop.screen.messages.clear();
        shop.screen.confirms = screen::Answer::no;
        id = shop.addProposal();
        shop.choose(id);
        panel(customerCode).setText(row.code);
        panel(totalAmount).setText(row.amount);
        shop.accept();
        ASSERT_EQ(shop.screen.messages.size(), 1u);
        EXPECT_EQ(shop.screen.messages[0].text == asked, row.passes) << row.code << " " << row.amount;
    }
}

TEST_F(AcceptanceTest, ACodeOrAmountThatIsNoNumberIsTheLanguagesError) {
    for (const Detail field : {customerCode, totalAmount}) {
        shop.errors.clear();
        id = shop.addProposal();
        shop.choose(id);
        panel(field).setText("mil");
        shop.accept();
        EXPECT_THAT(shop.errorTexts(), ElementsAre("No coinciden los tipos"));
    }
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(AcceptanceTest, OnlyYesGoesOn) {
    for (const screen::Answer answer : {screen::Answer::no, screen::Answer::cancel, screen::Answer::ok}) {
        shop.screen.messages.clear();
        shop.screen.confirms = answer;
        accepted();
        ASSERT_EQ(shop.screen.messages.size(), 1u);
        EXPECT_EQ(shop.screen.messages[0].text, asked);
        EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::information);
        EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
        EXPECT_EQ(shop.screen.messages[0].title, "");
    }
    EXPECT_EQ(shop.count("ORDEN"), "0");
    EXPECT_THAT(logged("BEGIN"), IsEmpty());
    EXPECT_EQ(shop.reloads, 0);
}

// --- Number and order ------------------------------------------------------------------------------------------------

TEST_F(AcceptanceTest, TheFirstOrderEverGetsNumberOne) {
    accepted();
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN"), "1");
    EXPECT_EQ(query("select DPI_Orden from DPI"), "1");
}

TEST_F(AcceptanceTest, TheNumberIsOneAboveTheHighestInTheTable) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM) VALUES (88)");
    shop.change("INSERT INTO ORDEN (ORDEN_NUM) VALUES (41)");
    accepted();
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN where ORDEN_IdDPI = 1"), "89");
    EXPECT_THAT(shop.screen.texts().back(), HasSubstr("nº 89 generada "));
}

TEST_F(AcceptanceTest, TheNumberOfADeletedHighestOrderIsGivenAgain) {
    accepted();
    shop.change("delete from ORDEN");
    accepted();
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN"), "1") << "a counter would give 2";
}

TEST_F(AcceptanceTest, ANumberBeyondThirtyTwoBitsIsTheLanguagesOverflow) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM) VALUES (2147483647)");
    id = shop.addProposal();
    shop.chooseAndAccept(id);
    EXPECT_THAT(shop.errorTexts(), ElementsAre("Desbordamiento"));
}

TEST_F(AcceptanceTest, RemarksGoWithoutTheirLineBreaks) {
    accepted({{"DPI_Obser", "N'uno\r\ndos\r\n\r\ntres'"}});
    EXPECT_EQ(query("select ORDEN_OBS from ORDEN"), "unodostres") << "not blanks instead";
}

TEST_F(AcceptanceTest, RemarksOfLineBreaksAloneAreNone) {
    accepted({{"DPI_Obser", "N'\r\n\r\n'"}});
    EXPECT_EQ(query("select ORDEN_OBS from ORDEN"),
              "Orden generada desde el presupuesto nº 1 , el 15/01/2026 10:00:00");
    accepted({{"DPI_Obser", "N''"}});
    EXPECT_EQ(query("select ORDEN_OBS from ORDEN where ORDEN_NUM = 2"),
              "Orden generada desde el presupuesto nº 2 , el 15/01/2026 10:00:00");
}

TEST_F(AcceptanceTest, TheMomentInTheRemarksHasItsDefaultForm) {
    shop.clock.time = runtime::Date::of(2026, 3, 5, 9, 5, 7);
    accepted();
    EXPECT_THAT(query("select ORDEN_OBS from ORDEN"), HasSubstr(" , el 05/03/2026 9:05:07"));
    shop.clock.time = runtime::Date::of(2026, 3, 5);
    accepted();
    EXPECT_EQ(query("select ORDEN_OBS from ORDEN where ORDEN_NUM = 2"),
              "Orden generada desde el presupuesto nº 2 , el 05/03/2026")
        << "no time at midnight";
}

TEST_F(AcceptanceTest, RemarksAndDescriptionAreCut) {
    const std::string chain(60, 'c');
    accepted({{"DPI_Obser", "N'" + std::string(200, 'o') + "'"},
              {"DPI_Tipo", "4"},
              {"DPI_PDM_Texto", "N'" + chain + "'"},
              {"DPI_Z", "123456789012345"},
              {"DPI_Eje", "123456789012345"}});
    EXPECT_EQ(query("select ORDEN_OBS from ORDEN"), std::string(150, 'o'));
    EXPECT_EQ(query("select ORDEN_DES from ORDEN"), "Piñon " + chain + " Doble de Z 123456789012345 Eje 12");
}

TEST_F(AcceptanceTest, TypesWithoutWordsGiveAnEmptyDescription) {
    for (const char* type : {"11", "14"}) {
        accepted({{"DPI_Tipo", type}});
        EXPECT_EQ(query("select ORDEN_DES from ORDEN where ORDEN_IdDPI = " + std::to_string(id)), "");
    }
}

TEST_F(AcceptanceTest, PiecesThatAreNoWholeNumberAreRoundedHalfToEven) {
    for (const auto& [pieces, stored] : {std::pair("2,5", "2"), std::pair("3,5", "4"), std::pair("2,51", "3")}) {
        id = shop.addProposal();
        shop.choose(id);
        panel(tracking::pieces).setText(pieces);
        shop.accept();
        EXPECT_EQ(query("select ORDEN_UNI from ORDEN where ORDEN_IdDPI = " + std::to_string(id)), stored);
    }
}

TEST_F(AcceptanceTest, DatesOfThePanelReachOrderAndProposal) {
    id = shop.addProposal();
    shop.choose(id);
    panel(orderDate).setText("02/01/2026");
    panel(deliveryDate).setText("30/06/2026");
    shop.accept();
    EXPECT_EQ(query("select ORDEN_INI,ORDEN_PLA from ORDEN"), "15/01/2026|30/06/2026");
    EXPECT_EQ(query("select DPI_FPedCliente,DPI_FechaEntrega,DPI_FAcepta from DPI"),
              "02/01/2026|30/06/2026|15/01/2026 10:00:00");
}

TEST_F(AcceptanceTest, WhatIsNoDateIsNull) {
    for (const char* text : {"", "pronto", "31/02/2026"}) {
        id = shop.addProposal();
        shop.choose(id);
        panel(orderDate).setText(text);
        panel(deliveryDate).setText(text);
        shop.accept();
        const std::string number = std::to_string(id);
        EXPECT_EQ(query("select ORDEN_PLA from ORDEN where ORDEN_IdDPI = " + number), "NULL") << text;
        EXPECT_EQ(query("select DPI_FPedCliente,DPI_FechaEntrega from DPI where DPI_Id = " + number), "NULL|NULL");
    }
    EXPECT_THAT(logged("INSERT INTO ORDEN ")[0], HasSubstr(",N'',Null,35.55,"));
    EXPECT_THAT(logged("UPDATE DPI")[0], HasSubstr("DPI_FPedCliente= Null ,DPI_FechaEntrega= Null ,"));
}

TEST_F(AcceptanceTest, WithoutACustomersOrderNumberTheOrderHasNull) {
    id = shop.addProposal();
    shop.choose(id);
    panel(customerOrder).setText("");
    shop.accept();
    EXPECT_EQ(query("select ORDEN_PED from ORDEN"), "NULL");
    EXPECT_EQ(query("select DPI_PedCliente from DPI"), "");
    EXPECT_THAT(logged("INSERT INTO ORDEN ")[0], HasSubstr(",ORDEN_Ped,ORDEN_DES)"));
}

TEST_F(AcceptanceTest, TheNullOfTheCustomersOrderNumberIsNotSpelledAsItsText) {
    accepted();
    EXPECT_THAT(logged("INSERT INTO ORDEN ")[0], HasSubstr(",ORDEN_PED,ORDEN_DES)"));
    EXPECT_THAT(logged("INSERT INTO ORDEN ")[0], Not(HasSubstr("ORDEN_Ped")));
}

TEST_F(AcceptanceTest, WhatWasTypedInThePanelIsSaved) {
    id = shop.addProposal();
    shop.choose(id);
    panel(customerName).setText("OTRO NOMBRE");
    panel(customerReference).setText("  R-88 ");
    panel(customerOrder).setText("P'10");
    panel(piecePrice).setText("40,125");
    shop.accept();
    EXPECT_EQ(query("select ORDEN_NOM,ORDEN_REF,ORDEN_PED,ORDEN_PRE,ORDEN_CLI,ORDEN_SER,ORDEN_IdDPI from ORDEN"),
              "OTRO NOMBRE|R-88|P'10|40,13|1001|0|1");
    EXPECT_EQ(query("select DPI_RefCli,DPI_PedCliente,DPI_NomCliente from DPI"), "  R-88 |P'10|TALLERES NORTE SL")
        << "the reference untrimmed; the name is not saved";
    EXPECT_THAT(logged("Select top 1"), ElementsAre(HasSubstr("orden_ref = 'R-88' order by")));
}

TEST_F(AcceptanceTest, AReferenceSeenBeforeBringsItsArticle) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (5,N'R-77',N'R-114')");
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (6,N'R-77',N'T-355')");
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (7,N'R-78',N'R-140')");
    accepted();
    EXPECT_EQ(query("select ORDEN_ART,ORDEN_ADE from ORDEN where ORDEN_NUM = 8"), "T-355|Tubo E355");
    EXPECT_THAT(logged("INSERT INTO ORDEN ")[0], HasSubstr(",ORDEN_INI,ORDEN_ART,ORDEN_ADE,ORDEN_PLA,"));
}

TEST_F(AcceptanceTest, TheArticlesTextIsCut) {
    shop.change("UPDATE ART SET ART_DES = N'" + std::string(140, 'a') + "' WHERE ART_ID = 13");
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (6,N'R-77',N'T-355')");
    accepted();
    EXPECT_EQ(query("select ORDEN_ADE from ORDEN where ORDEN_NUM = 7"), std::string(100, 'a'));
}

TEST_F(AcceptanceTest, ANewReferenceLeavesTheArticleOut) {
    accepted();
    EXPECT_THAT(logged("INSERT INTO ORDEN ")[0], Not(HasSubstr("ORDEN_ART")));
    EXPECT_EQ(query("select ORDEN_ART,ORDEN_ADE from ORDEN"), "NULL|");
}

TEST_F(AcceptanceTest, AnEmptyReferenceIsNotLookedUp) {
    accepted({{"DPI_RefCli", "NULL"}});
    EXPECT_THAT(logged("Select top 1"), IsEmpty());
    EXPECT_EQ(query("select ORDEN_REF,ORDEN_ADE from ORDEN"), "|");
}

TEST_F(AcceptanceTest, AReferenceWithAQuoteIsRefusedAndUndone) {
    accepted({{"DPI_RefCli", "N'1/2'''"}});
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, StartsWith("Error marcando presupuesto:\r\n")));
    EXPECT_EQ(shop.count("ORDEN"), "0");
    EXPECT_FALSE(shop.connection.transactionOpen());
}

TEST_F(AcceptanceTest, AReferencesQuoteIsNotDoubledInTheLookUp) {
    accepted({{"DPI_RefCli", "N'1/2'''"}});
    EXPECT_THAT(logged("Select top 1"), ElementsAre(HasSubstr("orden_ref = '1/2'' order by")));
}

TEST_F(AcceptanceTest, TheOrdersIdIsTheFirstThatBearsItsNumber) {
    // While numbers are one above the highest, no other order can have this number; if one has it, that order is the
    // one found.
    accepted();
    shop.change("INSERT INTO ORDEN (ORDEN_NUM) VALUES (1)");
    EXPECT_EQ(orderIdOf(*shop.database, 1), 1);
    EXPECT_THROW(orderIdOf(*shop.database, 77), runtime::RuntimeError);
}

// --- Sprocket data ---------------------------------------------------------------------------------------------------

TEST_F(AcceptanceTest, EverySprocketMeasureIsCopied) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM) VALUES (500)");
    accepted({{"DPI_Chav", "NULL"}, {"DPI_DmPri", "153.456"}});
    EXPECT_EQ(query("select Opi_Id,Opi_OrdId,Opi_Pas,Opi_Die,Opi_Rod,Opi_Anca,Opi_Eje,Opi_Chav,Opi_Pri,Opi_DmPri,"
                    "Opi_DmFon,Opi_DmExt,Opi_DmCub,Opi_Alt,Opi_Ancto,Opi_Llanta,Opi_Anccu,Opi_Disdm,Opi_DisGr,"
                    "Opi_Cubdm,Opi_CubGr,Opi_PesoDis,Opi_PesoCub from OrdPiñones"),
              "1|2|12,7|38|8,51|7,75|24|NULL|2|153,46|145,29|161,5|90|8,1|62|7,2|54,8|165|10|95|57|1,7|3,2")
        << "the order's id, not its number";
}

TEST_F(AcceptanceTest, TheMaterialsBearTheSprocketsId) {
    shop.change("INSERT INTO OrdPiñones (Opi_OrdId) VALUES (0)");
    accepted();
    EXPECT_EQ(query("select Mat_Idp from Mat"), "2\n2");
}

TEST_F(AcceptanceTest, TheSprocketsIdIsTheHighestWhoeverWroteIt) {
    id = shop.addProposal();
    shop.connection.before("SELECT MAX(Opi_Id)",
                           [&] { shop.change("INSERT INTO OrdPiñones (Opi_OrdId) VALUES (99)"); });
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select Mat_Idp from Mat"), "2\n2") << "of another client, who came between";
}

// --- Materials -------------------------------------------------------------------------------------------------------

constexpr const char* materials =
    "select Mat_Art,Mat_Uni,Mat_Lar,Mat_Din,Mat_Dex,Mat_Anc,Mat_Esp,Mat_For,Mat_FCA,MAT_UdCorte,MAT_LargoCorte,"
    "MAT_DmCorte,MAT_CubCorte from Mat";
constexpr const char* noHub = "0";

TEST_F(AcceptanceTest, TheDiscByFormulaAndAnswer) {
    struct Row {
        const char* article;
        screen::Answer cut;
        const char* stored;
    };
    const Row rows[] = {
        {"11", screen::Answer::yes, "R-114|1|36|1|165|1|1|2|2|3|10|165|1"},
        {"11", screen::Answer::no, "R-114|1|36|1|165|1|1|2|2|0|0|0|1"},
        {"11", screen::Answer::cancel, "R-114|1|36|1|165|1|1|2|2|0|0|0|1"},
        {"13", screen::Answer::yes, "T-355|1|36|1|165|1|1|4|4|3|10|165|1"},
        {"14", screen::Answer::no, "P-275|1|36|1|165|1|1|1|1|0|0|0|1"},
        {"15", screen::Answer::yes, "R-NC|1|36|1|165|1|1|2|2|0|0|0|1"},
        {"16", screen::Answer::yes, "S-6|3|10|33,5|165|1|1|6|6|0|0|0|0"},
        {"17", screen::Answer::yes, "S-0|3|10|33,5|165|1|1|0|0|0|0|0|0"},
        {"18", screen::Answer::yes, "S-5|3|10|33,5|165|1|1|5|5|0|0|0|0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        shop.change("delete from Mat");
        shop.change("delete from RUT");
        shop.screen.messages.clear();
        shop.screen.cutsDisc = row.cut;
        accepted({{"DPI_ArtDisco", row.article}, {"DPI_DmInterno", "33.5"}, {"DPI_CubCortPESO", noHub}});
        EXPECT_EQ(query(materials), row.stored);
        const std::string article = row.article;
        const bool isAsked = article != "15" && article != "16" && article != "17" && article != "18";
        EXPECT_EQ(shop.screen.messages.size(), isAsked ? 3u : 2u) << "the question of the cut";
        EXPECT_EQ(shop.count("RUT where RUT_Maq = 131"), isAsked && row.cut == screen::Answer::yes ? "1" : "0");
    }
}

TEST_F(AcceptanceTest, AnArticleWithoutAFormulaIsCutOffALength) {
    shop.change("UPDATE ART SET ART_For = NULL WHERE ART_ID = 17");
    accepted({{"DPI_ArtDisco", "17"}, {"DPI_ArtCubo", "17"}, {"DPI_DmInterno", "33.5"}});
    EXPECT_EQ(query(materials),
              "S-0|1|36|1|165|1|1|NULL|NULL|3|10|165|1\n"
              "S-0|1|177|1|95|1|1|NULL|NULL|3|57|95|2");
}

TEST_F(AcceptanceTest, TheDiscNotCutHereIsStillMarkedAsADisc) {
    shop.screen.cutsDisc = screen::Answer::no;
    accepted({{"DPI_CubCortPESO", noHub}});
    EXPECT_EQ(query("select MAT_CubCorte from Mat"), "1");
}

TEST_F(AcceptanceTest, AHubNotCutHereIsNotMarkedAsAHub) {
    shop.screen.cutsHub = screen::Answer::no;
    accepted();
    EXPECT_EQ(query("select MAT_CubCorte from Mat where Mat_Art = 'R-140'"), "0");
}

TEST_F(AcceptanceTest, TheHubByArticleAndAnswer) {
    struct Row {
        const char* article;
        screen::Answer cut;
        const char* stored;
    };
    const Row rows[] = {
        {"12", screen::Answer::yes, "R-140|1|177|1|95|1|1|2|2|3|57|95|2"},
        {"12", screen::Answer::no, "R-140|1|177|1|95|1|1|2|2|0|0|0|0"},
        {"13", screen::Answer::yes, "T-355|1|177|20|95|1|1|4|4|3|57|95|2"},
        {"15", screen::Answer::yes, "R-NC|1|177|1|95|1|1|2|2|0|0|0|0"},
        {"16", screen::Answer::yes, "S-6|1|177|1|95|1|1|6|6|3|57|95|2"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        shop.change("delete from Mat");
        shop.screen.cutsHub = row.cut;
        accepted({{"DPI_ArtCubo", row.article}, {"DPI_DisCortPESO", "0"}});
        EXPECT_EQ(query(materials), row.stored);
    }
}

TEST_F(AcceptanceTest, TwinHubsCountTwiceInLengthAndCuts) {
    for (const char* type : {"2", "3"}) {
        shop.change("delete from Mat");
        accepted({{"DPI_Tipo", type}, {"DPI_DisCortPESO", "0"}});
        EXPECT_EQ(query("select Mat_Lar,MAT_UdCorte,Mat_Uni from Mat"), "354|6|1") << type;
    }
}

TEST_F(AcceptanceTest, TheVariableSprocketsHubsDoNotCountTwice) {
    accepted({{"DPI_Tipo", "10"}, {"DPI_DisCortPESO", "0"}});
    EXPECT_EQ(query("select Mat_Lar,MAT_UdCorte,Mat_Uni from Mat"), "177|3|1");
}

TEST_F(AcceptanceTest, TheTypesThatHaveAHubRow) {
    for (int type = 0; data::findProductType(type); ++type) {
        shop.change("delete from Mat");
        accepted({{"DPI_Tipo", std::to_string(type)}, {"DPI_DisCortPESO", "0"}});
        const bool has = type == 0 || (type >= 2 && type <= 5) || type == 10 || type == 12;
        EXPECT_EQ(shop.count("Mat"), has ? "1" : "0") << type;
    }
}

TEST_F(AcceptanceTest, AGearsHubIsNotWrittenThoughItHasOne) {
    accepted({{"DPI_Tipo", "8"}});
    EXPECT_EQ(query("select Mat_Art from Mat"), "R-114");
}

TEST_F(AcceptanceTest, ARackHasItsPlateAndNothingElse) {
    struct Row {
        const char* article;
        screen::Answer cut;
        const char* stored;
    };
    const Row rows[] = {
        {"14", screen::Answer::yes, "P-275|3|1000,5|0|0|165|30|1|1|3|10|0|0"},
        {"14", screen::Answer::no, "P-275|3|1000,5|0|0|165|30|1|1|0|0|0|0"},
        {"15", screen::Answer::yes, "R-NC|3|1000,5|0|0|165|30|2|2|0|0|0|0"},
        {"16", screen::Answer::yes, "S-6|3|1000,5|0|0|165|30|6|6|3|10|0|0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        shop.change("delete from Mat");
        shop.screen.cutsDisc = row.cut;
        accepted({{"DPI_Tipo", "13"}, {"DPI_ArtDisco", row.article}, {"DPI_DmFon", "30"}, {"DPI_Llanta", "1000.5"}});
        EXPECT_EQ(query(materials), row.stored);
        EXPECT_EQ(query("select Mat_Idp from Mat"), "0");
    }
    EXPECT_EQ(shop.count("OrdPiñones"), "0");
    EXPECT_EQ(logged("INSERT INTO Mat").front(),
              "INSERT INTO Mat (Mat_Ord,Mat_Ser,Mat_Art,Mat_Des,Mat_Pco,Mat_Pve,Mat_Can,Mat_Med,Mat_Tca,Mat_Anc,"
              "Mat_Esp,Mat_Dex,Mat_For,Mat_FCA,Mat_Fac,Mat_Mat,Mat_Imp,Mat_Idp,Mat_Din,MAT_DmCorte,MAT_CubCorte,"
              "Mat_Lar,Mat_Uni,MAT_UdCorte,MAT_LargoCorte) VALUES (1,N'0',N'P-275',N'Pletina S275',0.8,1.2,0,N'Kg',0,"
              "165,30,0,N'1',1,7.85,3,0,0,0,0,0,1000.5,3,3,10)");
}

TEST_F(AcceptanceTest, ThePiecesBoughtOneByOneAreWrittenInThisOrder) {
    accepted({{"DPI_ArtDisco", "16"}, {"DPI_CubCortPESO", noHub}});
    EXPECT_THAT(
        logged("INSERT INTO Mat").front(),
        HasSubstr("Mat_Imp,Mat_Idp,Mat_Din,MAT_UdCorte,MAT_LargoCorte,MAT_DmCorte,MAT_CubCorte,Mat_Lar,Mat_Uni)"));
}

TEST_F(AcceptanceTest, LengthsAreRoundedToCents) {
    accepted({{"DPI_DisCortAN", "10.335"}, {"DPI_CubCortAN", "57.111"}, {"DPI_Unidades", "3"}});
    EXPECT_EQ(query("select Mat_Lar from Mat"), "37,01\n177,33") << "12,335 x 3 = 37,005; 59,111 x 3 = 177,333";
}

TEST_F(AcceptanceTest, WithoutWeightsThereIsNoMaterialAndNoQuestion) {
    for (const char* nothing : {"0", "NULL"}) {
        shop.screen.messages.clear();
        accepted({{"DPI_DisCortPESO", nothing}, {"DPI_CubCortPESO", nothing}});
        EXPECT_EQ(shop.screen.messages.size(), 2u);
    }
    EXPECT_EQ(shop.count("Mat"), "0");
    EXPECT_EQ(shop.count("RUT"), "0");
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN order by ORDEN_NUM"), "1\n2");
}

TEST_F(AcceptanceTest, ANullWeightDoesNotEndTheAcceptance) {
    accepted({{"DPI_DisCortPESO", "NULL"}, {"DPI_CubCortPESO", noHub}});
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, done));
}

TEST_F(AcceptanceTest, TheCutQuestionsAreAskedThus) {
    accepted();
    ASSERT_EQ(shop.screen.messages.size(), 4u);
    for (const int index : {1, 2}) {
        const screen::MessageBox& box = shop.screen.messages[static_cast<std::size_t>(index)];
        EXPECT_EQ(box.title, "Corte Material Disco");
        EXPECT_EQ(box.icon, screen::Icon::question);
        EXPECT_EQ(box.buttons, screen::Buttons::yesNo);
    }
    EXPECT_FALSE(shop.connection.transactionOpen());
}

TEST_F(AcceptanceTest, TheHubsQuestionDoesNotBearATitleOfItsOwn) {
    accepted();
    EXPECT_THAT(shop.screen.messages[2].text, HasSubstr("Cubo"));
    EXPECT_THAT(shop.screen.messages[2].title, Not(HasSubstr("Cubo")));
}

TEST_F(AcceptanceTest, NoTransactionWaitsOnTheUser) {
    bool open = false;
    shop.screen.whileOpen = [&](const screen::MessageBox&) { open = open || shop.connection.transactionOpen(); };
    accepted();
    EXPECT_EQ(shop.screen.messages.size(), 4u);
    EXPECT_FALSE(open);
}

TEST_F(AcceptanceTest, TwoCutsGoBeforeTheLabour) {
    id = shop.addProposal();
    shop.addLabour(id, 10, "0.25");
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select RUT_pos,RUT_Maq,RUT_Estimado,RUT_IdUsu,RUT_IdOrden,RUT_NumOrden from RUT order by RUT_pos"),
              "1|131|1|7|1|1\n2|131|1|7|1|1\n3|10|0,75|7|1|1");
}

TEST_F(AcceptanceTest, TheRouteCountsThePiecesOfThePanel) {
    id = shop.addProposal({{"DPI_DisCortPESO", "0"}, {"DPI_CubCortPESO", "0"}});
    shop.addLabour(id, 10, "0.5");
    shop.choose(id);
    panel(pieces).setText("2,5");
    shop.accept();
    EXPECT_EQ(query("select RUT_Estimado from RUT"), "1,25");
}

TEST_F(AcceptanceTest, TheProposalStaysTheSameWhateverTheListDoesMeanwhile) {
    shop.addProposal({{"DPI_Z", "11"}, {"DPI_DisCortDM", "1"}, {"DPI_CubCortDM", "1"}});
    shop.addProposal({{"DPI_Z", "22"}});
    shop.list(" Where  ( DPI_FAcepta is null )  Order by DPI_Id DESC ");
    shop.screen.whileOpen = [&](const screen::MessageBox& box) {
        if (box.buttons == screen::Buttons::yesNo) {
            shop.fields.rsDpi->requery();
        }
    };
    shop.accept();
    EXPECT_THAT(shop.errorTexts(), IsEmpty());
    EXPECT_EQ(query("select ORDEN_IdDPI from ORDEN"), "2");
    EXPECT_EQ(query("select Opi_Die from OrdPiñones"), "22");
    EXPECT_EQ(query("select Mat_Dex from Mat"), "165\n95");
    EXPECT_EQ(query("select DPI_Id from DPI where not DPI_FAcepta is null"), "2");
}

// --- The end ---------------------------------------------------------------------------------------------------------

TEST_F(AcceptanceTest, SuccessShowsTheProposalAloneWithItsOrder) {
    accepted();
    const screen::MessageBox& box = shop.screen.messages.back();
    EXPECT_EQ(box.text, done);
    EXPECT_EQ(box.icon, screen::Icon::none);
    EXPECT_EQ(box.title, "");
    EXPECT_EQ(shop.fields.txtCriterio(numberFrom).text(), "1");
    EXPECT_EQ(shop.fields.cboFiltroHistorico.listIndex(), allStates);
    EXPECT_EQ(shop.reloads, 1);
    EXPECT_EQ((*shop.fields.rsDpi)["DPI_Orden"].toLong(), 1);
    EXPECT_THAT(shop.clock.pauses, IsEmpty()) << "nobody else was waited for";
}

TEST_F(AcceptanceTest, SuccessIsKnownByACommitThatFails) {
    accepted();
    EXPECT_THAT(shop.screen.texts().back(), done);
    EXPECT_THAT(logged("COMMIT").size(), 2u);
    EXPECT_EQ(shop.connection.log().back(), "COMMIT");
    try {
        shop.connection.commitTrans();
        FAIL() << "a commit with nothing open has to fail";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), static_cast<int>(0x8004D00Eu));
    }
}

TEST_F(AcceptanceTest, ASecondPressDoesNothing) {
    accepted();
    shop.screen.messages.clear();
    shop.accept();
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(shop.count("ORDEN"), "1");
}

// --- Two clients
// -------------------------------------------------------------------------------------------------------

TEST_F(AcceptanceTest, AProposalThatAnotherClientAcceptedGetsNoSecondOrder) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_IdDPI) VALUES (9,1)");
    shop.change("UPDATE DPI SET DPI_FAcepta = getdate(), DPI_Orden = 9");
    shop.accept();
    EXPECT_THAT(shop.errorTexts(), IsEmpty());
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, "El presupuesto ya fue aceptado, orden de trabajo nº 9"));
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::none);
    EXPECT_EQ(shop.screen.messages.back().buttons, screen::Buttons::ok);
    EXPECT_EQ(shop.screen.messages.back().title, "");
    EXPECT_EQ(shop.count("ORDEN"), "1");
    EXPECT_FALSE(shop.connection.transactionOpen());
    EXPECT_EQ(shop.reloads, 1);
    EXPECT_EQ(shop.fields.txtCriterio(numberFrom).text(), "") << "the criteria stay as they are";
    EXPECT_EQ(shop.fields.cboFiltroHistorico.listIndex(), onlyPending);
    EXPECT_EQ(shop.connection.log().back(), "ROLLBACK");
}

TEST_F(AcceptanceTest, AProposalAcceptedWithoutAnOrderIsToldWithoutANumber) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("UPDATE DPI SET DPI_FAcepta = getdate()");
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº ");
}

TEST_F(AcceptanceTest, AProposalThatAnotherClientDeletedGetsNoOrder) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("delete from DPI");
    shop.accept();
    EXPECT_THAT(shop.errorTexts(), IsEmpty());
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, "El presupuesto ya no existe, otro usuario lo ha eliminado"));
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::none);
    EXPECT_EQ(shop.count("ORDEN"), "0");
    EXPECT_FALSE(shop.connection.transactionOpen());
    EXPECT_EQ(shop.reloads, 1);
}

const std::string changed = "El presupuesto ha sido modificado por otro usuario, revíselo antes de aceptarlo";

TEST_F(AcceptanceTest, AProposalThatAnotherClientChangedGetsNoOrderUntilItWasSeen) {
    for (const char* change : {"DPI_ImpTP = 36", "DPI_Obser = N'otra'", "DPI_Z = NULL", "DPI_Fecha = '14/01/2026'"}) {
        SCOPED_TRACE(change);
        shop.change("delete from ORDEN");
        shop.screen.messages.clear();
        shop.reloads = 0;
        id = shop.addProposal({{"DPI_Obser", "N'una'"}});
        shop.choose(id);
        shop.change(std::string("UPDATE DPI SET ") + change + " where DPI_Id = " + std::to_string(id));
        shop.accept();
        EXPECT_THAT(shop.errorTexts(), IsEmpty());
        EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, changed));
        EXPECT_EQ(shop.count("ORDEN"), "0");
        EXPECT_FALSE(shop.connection.transactionOpen());
        EXPECT_EQ(shop.reloads, 1);
        shop.chooseAndAccept(id);
        EXPECT_THAT(shop.screen.texts().back(), done);
    }
}

TEST_F(AcceptanceTest, AColumnThatTheListDoesNotKnowIsNoChange) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("ALTER TABLE DPI ADD DPI_Nueva int");
    shop.change("UPDATE DPI SET DPI_Nueva = 7");
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), done);
}

TEST_F(AcceptanceTest, ARefusalKeepsWhatWasTypedInThePanel) {
    for (const char* meanwhile : {"delete from DPI where DPI_Id = ", "UPDATE DPI SET DPI_ImpTP = 36 where DPI_Id = ",
                                  "UPDATE DPI SET DPI_FAcepta = getdate() where DPI_Id = "}) {
        SCOPED_TRACE(meanwhile);
        for (const Detail field : {customerReference, customerOrder, orderDate, deliveryDate, pieces}) {
            shop.screen.messages.clear();
            shop.reloads = 0;
            shop.addProposal();
            id = shop.addProposal();
            shop.choose(id);
            panel(field).setText("7");
            shop.change(meanwhile + std::to_string(id));
            shop.accept();
            EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, StartsWith("El presupuesto ")));
            EXPECT_EQ(panel(field).text(), "7");
            EXPECT_EQ(panel(customerName).text(), "TALLERES NORTE SL");
            EXPECT_EQ(shop.reloads, 0) << "the list would show another row";
        }
    }
    EXPECT_EQ(shop.count("ORDEN"), "0");
}

TEST_F(AcceptanceTest, WhoHasTypedIsToldHowToSeeAChangedProposal) {
    id = shop.addProposal();
    shop.choose(id);
    panel(customerOrder).setText("NUEVO");
    shop.change("UPDATE DPI SET DPI_ImpTP = 36");
    shop.accept();
    EXPECT_EQ(shop.screen.texts().back(),
              changed + "\r\nEjecute el filtro para verlo como está ahora, hasta entonces se conserva lo escrito");
}

TEST_F(AcceptanceTest, ARowThatThePanelCannotShowIsNotAccepted) {
    shop.addProposal({{"DPI_RefCli", "N'LA DE ANTES'"}});
    id = shop.addProposal({{"DPI_ImpTS", "NULL"}});
    shop.list(" Order by DPI_Id");
    try {
        shop.fields.rsDpi->moveNext();
        FAIL() << "the panel cannot show a null";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), runtime::invalidUseOfNull);
    }
    ASSERT_EQ(panel(totalAmount).text(), "106,65") << "of the row before";
    shop.accept();
    EXPECT_THAT(shop.screen.texts(), ElementsAre("El panel no muestra el presupuesto entero, no se puede aceptar"));
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    shop.fields.rsDpi->moveFirst();
    shop.accept();
    EXPECT_EQ(query("select ORDEN_IdDPI,ORDEN_REF from ORDEN"), "1|LA DE ANTES");
}

TEST_F(AcceptanceTest, AnAcceptedRowThatThePanelCannotShowDoesNothingAndSaysNothing) {
    id = shop.addProposal({{"DPI_ImpTS", "NULL"}, {"DPI_FAcepta", "getdate()"}});
    EXPECT_THROW(shop.choose(id), runtime::RuntimeError);
    shop.accept();
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_THAT(shop.connection.log(), IsEmpty());
}

TEST_F(AcceptanceTest, WhatIsAcceptedIsTheRowThatWasShown) {
    shop.addProposal({{"DPI_RefCli", "N'A'"}});
    shop.addProposal({{"DPI_RefCli", "N'B'"}});
    shop.list(" Order by DPI_Id");
    // A set whose current row changed without a notification.
    const std::function<void()> hears = std::exchange(shop.fields.rsDpi.onMoveComplete, nullptr);
    shop.fields.rsDpi->moveNext();
    shop.fields.rsDpi.onMoveComplete = hears;
    shop.accept();
    EXPECT_EQ(query("select ORDEN_IdDPI,ORDEN_REF from ORDEN"), "1|A");
    EXPECT_EQ(query("select DPI_Id from DPI where not DPI_FAcepta is null"), "1");
}

/// Adds an order of this proposal with which the proposal is not marked.
void addUnmarked(AcceptanceShop& shop, std::int32_t proposal, int number) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_IdDPI) VALUES (" + std::to_string(number) + "," +
                std::to_string(proposal) + ")");
}

void markWith(AcceptanceShop& shop, int number) {
    shop.change("UPDATE DPI SET DPI_FAcepta = getdate(), DPI_Orden = " + std::to_string(number));
}

constexpr std::size_t pausesInVain = 32;  ///< until an order is treated as the leftover of a failure

TEST_F(AcceptanceTest, AnOrderWithoutItsMarkIsGivenAMoment) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.clock.onPause = [&] {
        EXPECT_FALSE(shop.connection.transactionOpen()) << "the other client must be able to write";
        if (shop.clock.pauses.size() == 3) {
            markWith(shop, 9);
        }
    };
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº 9");
    EXPECT_EQ(shop.count("ORDEN"), "1");
    EXPECT_THAT(shop.clock.pauses, SizeIs(3));
}

TEST_F(AcceptanceTest, WhoeverWaitsSeesAWindowThatPaints) {
    using std::chrono::milliseconds;
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.screen.onYield = [&] {
        EXPECT_FALSE(shop.connection.transactionOpen()) << "painting reads rows";
        EXPECT_FALSE(shop.form.enabled()) << "a second press must not come between";
        EXPECT_EQ(shop.screen.hourglasses, 1) << "one for the whole time";
        EXPECT_EQ(shop.clock.pauses.size(), static_cast<std::size_t>(shop.screen.yields));
    };
    shop.accept();
    EXPECT_EQ(shop.screen.yields, static_cast<int>(pausesInVain));
    EXPECT_THAT(shop.clock.pauses, Each(Le(milliseconds(100))));
    EXPECT_EQ(std::accumulate(shop.clock.pauses.begin(), shop.clock.pauses.end(), milliseconds(0)), milliseconds(3075));
    EXPECT_TRUE(shop.form.enabled());
}

TEST_F(AcceptanceTest, AnOrderThatStaysUnmarkedDoesNotHinderASecondOne) {
    id = shop.addProposal();
    addUnmarked(shop, id, 9);
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN where ORDEN_IdDPI = 1"), "9\n10");
    EXPECT_EQ(query("select DPI_Orden from DPI"), "10");
    EXPECT_THAT(shop.clock.pauses, SizeIs(pausesInVain));
}

TEST_F(AcceptanceTest, TheWaitBeginsAnewForAnotherOrderThanBefore) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    // The other client waits for the same leftover and its waiting time ends first. Its mark comes late.
    shop.clock.onPause = [&] {
        if (shop.clock.pauses.size() == pausesInVain) {
            addUnmarked(shop, id, 10);
        } else if (shop.clock.pauses.size() == 2 * pausesInVain) {
            markWith(shop, 10);
        }
    };
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº 10");
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN where ORDEN_IdDPI = 1"), "9\n10");
    EXPECT_EQ(shop.clock.pauses.back(), shop.clock.pauses[pausesInVain - 1]);
    EXPECT_EQ(shop.clock.pauses[pausesInVain], shop.clock.pauses[0]) << "it begins with the short ones";
}

TEST_F(AcceptanceTest, ASecondLeftoverIsWaitedForOnceToo) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.clock.onPause = [&] {
        if (shop.clock.pauses.size() == 5) {
            addUnmarked(shop, id, 10);
        }
    };
    shop.accept();
    EXPECT_EQ(query("select DPI_Orden from DPI"), "11");
    EXPECT_THAT(shop.clock.pauses, SizeIs(5 + pausesInVain));
}

TEST_F(AcceptanceTest, AnOldOrderWithoutItsMarkIsNotWaitedFor) {
    id = shop.addProposal();
    addUnmarked(shop, id, 9);
    addUnmarked(shop, 77, 109);
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select DPI_Orden from DPI"), "110");
    EXPECT_THAT(shop.clock.pauses, IsEmpty());
}

TEST_F(AcceptanceTest, TheMarkIsReadBeforeTheOrders) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    markWith(shop, 9);
    shop.accept();
    EXPECT_THAT(logged("ORDEN_IdDPI = "), IsEmpty()) << "an accepted proposal's orders are not asked for";
}

TEST_F(AcceptanceTest, AnErrorWhileWaitingIsToldAndTheFormComesBack) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.clock.onPause = [&] {
        if (shop.clock.pauses.size() == 2) {
            shop.connection.refuse(static_cast<int>(shop.connection.log().size()) + 2);  // the look at the proposal
        }
    };
    shop.screen.whileOpen = [&](const screen::MessageBox& box) {
        EXPECT_TRUE(box.text == asked || shop.screen.hourglasses == 1);
        EXPECT_TRUE(shop.form.enabled()) << "the words come up when the wait is over";
    };
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "Error marcando presupuesto:\r\nFallo provocado");
    EXPECT_FALSE(shop.connection.transactionOpen());
    EXPECT_EQ(shop.count("ORDEN"), "1");
    EXPECT_TRUE(shop.form.enabled());
}

}  // namespace
}  // namespace velmora::tracking
