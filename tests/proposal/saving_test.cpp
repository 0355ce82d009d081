#include "velmora/proposal/saving.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/proposal_statements.h"
#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using screen::Key;
using support::ProposalWorkshop;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
namespace statements = support::statements;

class SavingTest : public ::testing::Test {
  protected:
    /// Reads the stored proposal's columns, each as text.
    std::vector<std::string> row(const std::vector<std::string>& columns) {
        std::vector<std::string> values;
        for (const std::string& column : columns) {
            values.push_back(workshop.query("select " + column + " from DPI where DPI_Id = 1"));
        }
        return values;
    }
    /// Customer and units on a product of a type whose fields are filled without its calculations.
    void fill(int type) {
        auto& f = workshop.fields();
        f.cboTipoPre.setListIndex(type);
        f.bCargandoPropuesta = true;
        for (int i = 0; i <= 25; ++i) {
            f.Text1(i).setText(std::to_string(100 + i));
        }
        for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 50, 51, 52, 53}) {
            f.Text4(i).setText(std::to_string(200 + i));
        }
        for (const int i : {5, 7, 8, 9, 10, 12, 14, 15, 16, 20, 21, 22, 23, 24, 25, 54, 55, 56, 57}) {
            f.txtPesu(i).setText(std::to_string(300 + i));
        }
        for (int i = 0; i <= 8; ++i) {
            f.txtPDM(i).setText(std::to_string(400 + i));
        }
        f.txtModulo.setText("500");
        f.txtPesu(0).setText("1001");
        f.txtPesu(1).setText("TALLERES NORTE SL");
        f.txtPesu(11).setText("3");
        f.bCargandoPropuesta = false;
    }
    std::vector<std::string> messages() { return workshop.screen.messageTexts(); }

    ProposalWorkshop workshop;
};

TEST_F(SavingTest, ANewProposalGetsTheHighestNumberAndTheDateOfTheServer) {
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.text("txtPesu(3)"), "1");
    EXPECT_EQ(workshop.text("txtPesu(4)"), "15/01/2026");
    workshop.openAnew();
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.text("txtPesu(3)"), "2");
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "2");
    EXPECT_EQ(workshop.query("select DPI_Fecha from DPI where DPI_Id = 2"), "15/01/2026 10:00:00");
}

TEST_F(SavingTest, AnInsertRunsItsStatementsToTheLetter) {
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    workshop.connection.clear();
    workshop.key(Key::f5);
    using namespace statements;
    EXPECT_THAT(
        workshop.connection.log(),
        ElementsAre(
            "BEGIN",
            "INSERT INTO DPI (DPI_CosteCorteDisco,DPI_FijoSierra,DPI_Obser,DPI_Extra,DPI_ProTex,DPI_Modulo,DPI_Alt,"
            "DPI_Llanta,DPI_AnchoCubo,DPI_ArtDisco,DPI_IdParDisco,DPI_DisCortDM,DPI_DisCortAN,DPI_DisCortPESO,"
            "DPI_DmFon,DPI_DisPVE,DPI_DisImporte,DPI_Pas,DPI_AC,DPI_DmExt,DPI_DmCub,DPI_Tipo,DPI_AnchoTotal,"
            "DPI_RefCli,DPI_Z,DPI_Rodillo,DPI_Eje,DPI_Chav,DPI_Pri,DPI_DmPri,DPI_CubCortDM,DPI_CubCortAN,"
            "DPI_CubCortPESO,DPI_CubPVE,DPI_CubImporte,DPI_ArtCubo,DPI_IdParCubo,DPI_ImpMat,DPI_ImpMO,DPI_ImpTS,"
            "DPI_ImpVA,DPI_ImpTP,DPI_Unidades,DPI_Importe,DPI_CodCliente,DPI_NomCliente,DPI_DmInterno,"
            "DPI_CuboDmInterno,DPI_Acopla,DPI_HERRAMIENTA,DPI_PDM_Tipo,DPI_PDM_b1,DPI_PDM_x,DPI_PDM_h1,"
            "DPI_PDM_Texto) VALUES (8.2,0,N'',N'',N'',0,6.48,6,59,11,1,164,8,1.33,146.04,1.4,10.06,12.7,7.75,159,95,0,"
            "65,N'',38,7.75,24,0,0,153.79,100,62,3.95,1.5,7.93,12,2,17.99,0,0,0,17.99,3,53.97,1001,"
            "N'TALLERES NORTE SL',0,0,0,N'Broca', Null , Null , Null , Null , Null )",
            "SELECT MAX(DPI_Id) FROM DPI", "SELECT DPI_Fecha,DPI_CosteCorteDisco FROM DPI where DPI_Id = 1", "COMMIT",
            "select * from DPI where DPI_ID=1", discs, material("1"), hubs, material("2"), material("1"), material("2"),
            material("1"), material("2"),
            history(" WHERE DPI_Z = 38 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 7.75 And Dpi_Tipo = 0 "
                    "and DPI_Id <> 1 Order by DPI_Fecha DESC")));
}

TEST_F(SavingTest, AnUpdateRunsItsStatementsToTheLetter) {
    workshop.saveNewProposal();
    workshop.set("txtPesu(11)", "5");
    workshop.set("txtPesu(2)", "O'Donnell");
    workshop.leave();
    workshop.connection.clear();
    workshop.key(Key::f5);
    using namespace statements;
    EXPECT_THAT(
        workshop.connection.log(),
        ElementsAre(
            "BEGIN", "Select * from DPI where DPI_Id = 1", "Select max(orden_NUM) FROM ORDEN",
            "UPDATE DPI SET DPI_CosteCorteDisco=8.2,DPI_FijoSierra=0,DPI_Obser=N'',DPI_Extra=N'',DPI_ProTex=N'',"
            "DPI_Modulo=0,DPI_Alt=6.48,DPI_Llanta=6,DPI_AnchoCubo=59,DPI_ArtDisco=11,DPI_IdParDisco=1,"
            "DPI_DisCortDM=164,DPI_DisCortAN=8,DPI_DisCortPESO=1.33,DPI_DmFon=146.04,DPI_DisPVE=1.4,"
            "DPI_DisImporte=10.06,DPI_Pas=12.7,DPI_AC=7.75,DPI_DmExt=159,DPI_DmCub=95,DPI_Tipo=0,DPI_AnchoTotal=65,"
            "DPI_RefCli=N'O''Donnell',DPI_Z=38,DPI_Rodillo=7.75,DPI_Eje=24,DPI_Chav=0,DPI_Pri=0,DPI_DmPri=153.79,"
            "DPI_CubCortDM=100,DPI_CubCortAN=62,DPI_CubCortPESO=3.95,DPI_CubPVE=1.5,DPI_CubImporte=7.93,"
            "DPI_ArtCubo=12,DPI_IdParCubo=2,DPI_ImpMat=17.99,DPI_ImpMO=0,DPI_ImpTS=0,DPI_ImpVA=0,DPI_ImpTP=17.99,"
            "DPI_Unidades=5,DPI_Importe=89.95,DPI_CodCliente=1001,DPI_NomCliente=N'TALLERES NORTE SL',"
            "DPI_DmInterno=0,DPI_CuboDmInterno=0,DPI_Acopla=0,DPI_HERRAMIENTA=N'Broca',DPI_PDM_Tipo= Null ,"
            "DPI_PDM_b1= Null ,DPI_PDM_x= Null ,DPI_PDM_h1= Null ,DPI_PDM_Texto= Null  Where DPI_Id = 1",
            "COMMIT", "select * from DPI where DPI_ID=1", discs, material("1"), hubs, material("2"), material("1"),
            material("2"), material("1"), material("2"),
            history(" WHERE DPI_Z = 38 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 7.75 And Dpi_Tipo = 0 "
                    "and DPI_Id <> 1 Order by DPI_Fecha DESC")));
}

TEST_F(SavingTest, ChangedUnitsUpdateOneRowAndKeepItsDate) {
    workshop.saveNewProposal();
    workshop.openAnew();
    workshop.saveNewProposal();
    workshop.database->execute("UPDATE DPI SET DPI_Fecha='01/12/2025 08:00:00'");
    workshop.set("txtPesu(11)", "7");
    workshop.leave();
    workshop.key(Key::f5);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "2");
    EXPECT_EQ(workshop.query("select DPI_Unidades from DPI where DPI_Id = 1"), "3");
    EXPECT_EQ(workshop.query("select DPI_Unidades from DPI where DPI_Id = 2"), "7");
    EXPECT_EQ(workshop.query("select DPI_Fecha from DPI where DPI_Id = 2"), "01/12/2025 8:00:00");
    EXPECT_EQ(workshop.text("txtPesu(4)"), "01/12/2025");
}

TEST_F(SavingTest, RemarksLoseTheirLineBreaksAndTheWordsStandJoined) {
    workshop.set("txtObservaciones", "uno\r\ndos\r\n\r\ntres");
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.query("select DPI_Obser from DPI"), "unodostres");
    EXPECT_EQ(workshop.text("txtObservaciones"), "unodostres");
}

TEST_F(SavingTest, ARefusedSaveHasTakenTheLineBreaksOutAlready) {
    workshop.set("txtObservaciones", "uno\r\ndos");
    workshop.enterCustomerAndUnits();
    workshop.connection.lose();
    workshop.key(Key::f5);
    EXPECT_EQ(workshop.text("txtObservaciones"), "unodos");
}

TEST_F(SavingTest, ARackKeepsTheColumnsOfMultipleProductsAsTheyWere) {
    fill(13);
    ASSERT_TRUE(workshop.form().msGrabar(true));
    workshop.database->execute(
        "UPDATE DPI SET DPI_PDM_Tipo=3,DPI_PDM_b1=1.5,DPI_PDM_x=2.5,DPI_PDM_h1=3.5,DPI_PDM_Texto=N'ISO'");
    ASSERT_TRUE(workshop.form().msGrabar(true));
    EXPECT_THAT(row({"DPI_PDM_Tipo", "DPI_PDM_b1", "DPI_PDM_x", "DPI_PDM_h1", "DPI_PDM_Texto"}),
                ElementsAre("3", "1,5", "2,5", "3,5", "ISO"));
}

TEST_F(SavingTest, EachTypeWritesTheColumnsOfMultipleProductsInItsWay) {
    const std::vector<std::string> columns{"DPI_PDM_Tipo", "DPI_PDM_b1", "DPI_PDM_x", "DPI_PDM_h1", "DPI_PDM_Texto"};
    const std::vector<std::string> nulls(5, "NULL");
    const std::vector<std::string> marks{"9", "9", "9", "9", "x"};
    const std::vector<std::string> doubles{"1", "105", "407", "402", "ISO 1/2''"};
    const std::vector<std::string> triples{"1", "105", "111", "402", "ISO 1/2''"};
    const std::vector<std::string> variables{"NULL", "118", "NULL", "114", "NULL"};
    const std::vector<std::vector<std::string>> expected{nulls,     nulls,     nulls,   nulls, doubles,
                                                         doubles,   doubles,   doubles, marks, marks,
                                                         variables, variables, triples, marks, triples};
    ASSERT_EQ(expected.size(), data::productTypes.size());
    for (int type = 0; data::findProductType(type); ++type) {
        ProposalWorkshop fresh;
        auto& f = fresh.fields();
        f.cboTipoPre.setListIndex(type);
        f.cboDobles.setListIndex(1);
        f.bCargandoPropuesta = true;
        f.Text1(5).setText("105");
        f.Text1(11).setText("111");
        f.Text1(14).setText("114");
        f.Text1(18).setText("118");
        f.txtPDM(2).setText("402");
        f.txtPDM(7).setText("407");
        f.txtPesu(0).setText("1001");
        f.txtPesu(1).setText("N");
        f.txtPesu(11).setText("1");
        // A row to update, whose columns tell whether they were written.
        fresh.database->execute(
            "INSERT INTO DPI (DPI_PDM_Tipo,DPI_PDM_b1,DPI_PDM_x,DPI_PDM_h1,DPI_PDM_Texto) VALUES (9,9,9,9,N'x')");
        f.txtPesu(3).setText("1");
        f.bCargandoPropuesta = false;
        if (type == data::variablePulley) {
            fresh.set("Text1(14)", "22");
            fresh.set("Text1(14)", "114");
        }
        fresh.attempt([&] { fresh.form().msGrabar(true); });
        std::vector<std::string> stored;
        for (const std::string& column : columns) {
            stored.push_back(fresh.query("select " + column + " from DPI where DPI_Id = 1"));
        }
        EXPECT_THAT(stored, ElementsAreArray(expected[static_cast<std::size_t>(type)])) << "type " << type;
    }
}

TEST_F(SavingTest, AnUpdateLeavesThePulleysSecondHubThatTheUserHasNotTold) {
    fill(data::variablePulley);
    workshop.database->execute("INSERT INTO DPI (DPI_PDM_Tipo,DPI_PDM_b1,DPI_PDM_h1) VALUES (9,60,22.5)");
    workshop.fields().txtPesu(3).setText("1");
    workshop.key(Key::f5);
    EXPECT_THAT(row({"DPI_PDM_Tipo", "DPI_PDM_b1", "DPI_PDM_h1"}), ElementsAre("NULL", "60", "22,5"));
    workshop.set("Text1(18)", "55");
    workshop.key(Key::f5);
    EXPECT_THAT(row({"DPI_PDM_b1", "DPI_PDM_h1"}), ElementsAre("55", "114"));
}

TEST_F(SavingTest, ANewPulleyStoresItsSecondHubKnownOrNot) {
    fill(data::variablePulley);
    workshop.key(Key::f5);
    EXPECT_THAT(row({"DPI_PDM_b1", "DPI_PDM_h1"}), ElementsAre("118", "114"));
}

TEST_F(SavingTest, TheLoadAfterOnesOwnSaveKeepsThePulleysSecondHubKnown) {
    workshop.choose("cboTipoPre", data::variablePulley);
    workshop.enterToothing();
    workshop.set("Text1(14)", "22,5");
    workshop.set("Text1(18)", "60");
    workshop.enterCustomerAndUnits();
    workshop.key(Key::f5);
    EXPECT_TRUE(workshop.fields().secondHubIsKnown());
    EXPECT_EQ(workshop.text("Text1(14)"), "22,50");
    workshop.set("Text1(14)", "30");
    workshop.leave();
    workshop.key(Key::f5);
    EXPECT_THAT(row({"DPI_PDM_b1", "DPI_PDM_h1"}), ElementsAre("60", "30"));
    workshop.press("cmdCambios");
    EXPECT_FALSE(workshop.fields().secondHubIsKnown()) << "any other load forgets it";
    workshop.key(Key::f5);
    EXPECT_FALSE(workshop.fields().secondHubIsKnown()) << "and a save does not make it known";
    EXPECT_THAT(row({"DPI_PDM_b1", "DPI_PDM_h1"}), ElementsAre("60", "30"));
}

TEST_F(SavingTest, APlainProductAndARackFillTheSameColumnsFromTheirOwnFields) {
    const std::vector<std::string> columns{
        "DPI_CosteCorteDisco", "DPI_FijoSierra", "DPI_Modulo",      "DPI_Alt",
        "DPI_Llanta",          "DPI_AnchoCubo",  "DPI_ArtDisco",    "DPI_IdParDisco",
        "DPI_DisCortDM",       "DPI_DisCortAN",  "DPI_DisCortPESO", "DPI_DmFon",
        "DPI_DisPVE",          "DPI_DisImporte", "DPI_Pas",         "DPI_AC",
        "DPI_DmExt",           "DPI_DmCub",      "DPI_AnchoTotal",  "DPI_Z",
        "DPI_Rodillo",         "DPI_Eje",        "DPI_Chav",        "DPI_Pri",
        "DPI_DmPri",           "DPI_CubCortDM",  "DPI_CubCortAN",   "DPI_CubCortPESO",
        "DPI_CubPVE",          "DPI_CubImporte", "DPI_ArtCubo",     "DPI_IdParCubo",
        "DPI_ImpMat",          "DPI_ImpMO",      "DPI_ImpTS",       "DPI_ImpVA",
        "DPI_ImpTP",           "DPI_Unidades",   "DPI_Importe",     "DPI_CodCliente"};
    const std::vector<std::string> common{"115", "116", "117", "101", "102", "107", "112", "113",
                                          "103", "202", "203", "205", "324", "325", "12",  "2",
                                          "307", "308", "309", "305", "310", "3",   "312", "1001"};
    const std::vector<std::string> plain{"316", "314", "500", "106", "109", "110", "11",  "1",
                                         "201", "200", "204", "104", "321", "322", "100", "108"};
    const std::vector<std::string> rack{"316", "314", "119", "122", "124", "125", "14",  "5",
                                        "250", "251", "253", "252", "356", "357", "120", "121"};
    for (const int type : {0, 13}) {
        workshop.openAnew();
        workshop.database->execute("delete from DPI");
        fill(type);
        // What the save writes, before the reload works on the fields.
        workshop.connection.clear();
        workshop.attempt([&] { workshop.form().msGrabar(true); });
        std::vector<std::string> expected = type == 0 ? plain : rack;
        expected.insert(expected.end(), common.begin(), common.end());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            EXPECT_EQ(workshop.query("select " + columns[i] + " from DPI"), expected[i])
                << columns[i] << " of " << type;
        }
    }
}

TEST_F(SavingTest, TheInnerDiameterIsStoredForTubesAlone) {
    fill(0);
    workshop.fields().cboMatDisco.setListIndex(1);
    workshop.fields().cboMatCubo.setListIndex(1);
    workshop.fields().Text4(6).setText("60,5");
    workshop.fields().Text4(7).setText("30,25");
    ASSERT_TRUE(workshop.form().msGrabar(true));
    EXPECT_THAT(row({"DPI_DmInterno", "DPI_CuboDmInterno"}), ElementsAre("60,5", "30,25"));
    workshop.fields().cboMatDisco.setListIndex(0);
    workshop.fields().cboMatCubo.setListIndex(0);
    ASSERT_TRUE(workshop.form().msGrabar(true));
    EXPECT_THAT(row({"DPI_DmInterno", "DPI_CuboDmInterno"}), ElementsAre("0", "0"));
}

TEST_F(SavingTest, FreeTextsAreCutAndTheRestIsKeptAsTyped) {
    std::string extra;
    for (int i = 0; i < 250; ++i) {
        extra += "ñ";
    }
    workshop.set("txtExtra", extra);
    workshop.set("txtCPro", "0123456789012345678901234567890123456789");
    workshop.set("cboHerramienta", "Escariador largo H7");
    workshop.check("chkAcopla", true);
    workshop.set("txtPesu(2)", "ref \"x\" 'y'; --");
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.query("select len(DPI_Extra) from DPI"), "200");
    EXPECT_EQ(workshop.text("txtExtra"), extra.substr(0, 400));
    EXPECT_THAT(row({"DPI_ProTex", "DPI_HERRAMIENTA", "DPI_Acopla", "DPI_RefCli"}),
                ElementsAre("01234567890123456789012345678901234", "Escariador larg", "1", "ref \"x\" 'y'; --"));
}

TEST_F(SavingTest, AMissingCustomerIsRefused) {
    struct Case {
        const char* code;
        const char* name;
    };
    const std::vector<Case> cases{{"", ""}, {"1001", ""}, {"", "N"}, {"abc", "TALLERES NORTE SL"}};
    for (const Case& each : cases) {
        workshop.fields().txtPesu(0).setText(each.code);
        workshop.fields().txtPesu(1).setText(each.name);
        workshop.fields().txtPesu(11).setText("3");
        workshop.screen.messages.clear();
        workshop.connection.clear();
        EXPECT_FALSE(workshop.form().msGrabar(false));
        EXPECT_THAT(messages(), ElementsAre("Error Falta Cliente"));
        EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::critical);
        EXPECT_EQ(workshop.focused(), "txtPesu(0)");
        EXPECT_THAT(workshop.connection.log(), IsEmpty());
        workshop.form().leaveFocus(screen::Form::Insist::yes);
    }
}

TEST_F(SavingTest, ACustomerNameWithACodeThatIsNoNumberIsRefused) {
    workshop.enterCustomerAndUnits();
    workshop.set("txtPesu(0)", "10O1");
    workshop.leave();
    EXPECT_EQ(workshop.text("txtPesu(1)"), "TALLERES NORTE SL");
    workshop.key(Key::f5);
    EXPECT_THAT(messages(), ElementsAre("Error Falta Cliente"));
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
}

TEST_F(SavingTest, TheCustomerCodeZeroIsRefused) {
    workshop.fields().txtPesu(0).setText("0");
    workshop.fields().txtPesu(1).setText("Nadie");
    workshop.fields().txtPesu(11).setText("3");
    EXPECT_FALSE(workshop.form().msGrabar(false));
    EXPECT_THAT(messages(), ElementsAre("Error Falta Cliente"));
}

TEST_F(SavingTest, TheCustomerCodeZeroIsANumberAndYetNotAccepted) {
    workshop.fields().txtPesu(0).setText("0,00");
    workshop.fields().txtPesu(1).setText("Nadie");
    workshop.fields().txtPesu(11).setText("3");
    workshop.form().msGrabar(false);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
    workshop.fields().txtPesu(0).setText("1");
    workshop.form().msGrabar(false);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "1") << "any other number goes";
}

TEST_F(SavingTest, FewerThanOnePieceIsRefused) {
    for (const char* units : {"0", "0,99", "-1", "", "tres"}) {
        workshop.fields().txtPesu(0).setText("1001");
        workshop.fields().txtPesu(1).setText("N");
        workshop.fields().txtPesu(11).setText(units);
        workshop.screen.messages.clear();
        EXPECT_FALSE(workshop.form().msGrabar(false));
        EXPECT_THAT(messages(), ElementsAre("Error Falta indicar el numero de unidades")) << units;
        EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::critical);
        EXPECT_EQ(workshop.focused(), "txtPesu(11)");
    }
}

TEST_F(SavingTest, SilenceShowsNoSuccessAndLoudnessDoes) {
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    EXPECT_TRUE(workshop.form().msGrabar(true));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_TRUE(workshop.form().msGrabar(false));
    EXPECT_THAT(messages(), ElementsAre("Datos Grabados satisfactoriamente"));
}

TEST_F(SavingTest, ANewRowIsToldWithAnIcon) {
    workshop.saveNewProposal();
    ASSERT_THAT(messages(), ElementsAre("Datos Grabados satisfactoriamente"));
    EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::information);
}

TEST_F(SavingTest, AChangedRowIsToldWithoutOne) {
    workshop.saveNewProposal();
    workshop.screen.messages.clear();
    workshop.key(Key::f5);
    ASSERT_THAT(messages(), ElementsAre("Datos Grabados satisfactoriamente"));
    EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::none);
}

TEST_F(SavingTest, AfterASaveTheFormIsOpenForEditingWithItsTypeFixed) {
    workshop.saveNewProposal();
    EXPECT_TRUE(workshop.enabled("txtPesu(0)"));
    EXPECT_FALSE(workshop.enabled("cboTipoPre"));
    EXPECT_TRUE(workshop.form().enabled());
    const auto& f = workshop.fields();
    EXPECT_FALSE(f.bCargandoPropuesta || f.bCargandoDisco || f.bCargandoCubo);
}

TEST_F(SavingTest, DuringTheReloadTheDiscIsGuardedAndTheHubIsNot) {
    workshop.saveNewProposal();
    auto& f = workshop.fields();
    std::vector<bool> guards;
    f.txtCPro.onChange = [&] { guards = {f.bCargandoPropuesta, f.bCargandoDisco, f.bCargandoCubo}; };
    workshop.database->execute("UPDATE DPI SET DPI_ProTex=N'antes'");
    f.txtCPro.setText("0123456789012345678901234567890123456789");  // cut by the save, so that the reload changes it
    workshop.screen.queue(screen::Answer::yes);                     // over what was stored meanwhile
    workshop.key(Key::f5);
    EXPECT_THAT(guards, ElementsAre(true, true, false));
}

TEST_F(SavingTest, AnAcceptedProposalIsNotSavedWithoutAWord) {
    workshop.saveNewProposal();
    workshop.screen.messages.clear();
    workshop.fields().txtPesu(13).setText("15/01/2026");
    workshop.connection.clear();
    EXPECT_FALSE(workshop.form().msGrabar(false));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
}

TEST_F(SavingTest, AKeyIsNeverGivenAgainAfterADelete) {
    workshop.saveNewProposal();
    workshop.database->execute("delete from dpi where dpi_id = 1");
    workshop.openAnew();
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.text("txtPesu(3)"), "2");
}

TEST_F(SavingTest, AfterADeleteTheNextKeyIsNotTheHighestPlusOne) {
    workshop.saveNewProposal();
    workshop.openAnew();
    workshop.saveNewProposal();
    workshop.database->execute("delete from dpi where dpi_id = 2");
    EXPECT_EQ(workshop.query("select max(DPI_Id)+1 from DPI"), "2");
    workshop.openAnew();
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.text("txtPesu(3)"), "3");
}

TEST_F(SavingTest, ALineOfCostIsAProductUnderTheMaskOrZero) {
    EXPECT_EQ(FnImporteFila("1000,5", "2"), "2.001,00");
    EXPECT_EQ(FnImporteFila("0,005", "1"), "0,01");
    EXPECT_EQ(FnImporteFila("", "2"), "0,00");
    EXPECT_EQ(FnImporteFila("2", "x"), "0,00");
}

}  // namespace
}  // namespace velmora::proposal
