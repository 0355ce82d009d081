#include "velmora/tracking/acceptance.h"

#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/tracking/order_row.h"

#include "acceptance_run.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

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
            "BEGIN", "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =131",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,1,1,1,131,1,1)",
            "COMMIT", "BEGIN", "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =131",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,2,1,1,131,1,2)",
            "COMMIT",
            "Select (modpi_tiempo * 3)as Tiempo ,modpi_maq from modpi where modpi_dpi=1 Order by modpi_id asc", "BEGIN",
            "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =10",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,3,1,1,10,0.75,1)",
            "COMMIT", "BEGIN", "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =12",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(7,4,1,1,12,1.5,1)",
            "COMMIT", "COMMIT"));
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

TEST_F(AcceptanceTest, AQuoteInTheReferenceIsLookedFor) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (6,N'1/2''',N'T-355')");
    accepted({{"DPI_RefCli", "N'1/2'''"}});
    EXPECT_THAT(logged("Select top 1"), ElementsAre(HasSubstr("orden_ref = '1/2''' order by")));
    EXPECT_EQ(query("select ORDEN_REF,ORDEN_ART from ORDEN where ORDEN_NUM = 7"), "1/2'|T-355");
}

TEST_F(AcceptanceTest, AReferenceThatIsAConditionFindsNobodysArticle) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (6,N'R-77',N'T-355')");
    accepted({{"DPI_RefCli", "N''' or ''1''=''1'"}});
    EXPECT_EQ(query("select ORDEN_REF,ORDEN_ART,ORDEN_ADE from ORDEN where ORDEN_NUM = 7"), "' or '1'='1|NULL|");
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
    EXPECT_EQ(logged("COMMIT").size(), logged("BEGIN").size() + 1);
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

}  // namespace
}  // namespace velmora::tracking
