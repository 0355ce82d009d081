#include "velmora/proposal/loading.h"

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/estimate/stored_fields.h"
#include "velmora/platform/runtime/numbers.h"

#include "loading_form.h"
#include "support/proposal_statements.h"
#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace statements = support::statements;

TEST_F(LoadingTest, StoredFiguresStandAtTheEndNotRecalculatedOnes) {
    store(0, small, ",180,1");
    ASSERT_TRUE(load());
    const std::vector<std::pair<const char*, const char*>> expected{
        {"txtPesu(3)", "1"},
        {"txtPesu(4)", "15/01/2026"},
        {"txtPesu(6)", ""},
        {"txtPesu(13)", ""},
        {"txtPesu(0)", "1001"},
        {"txtPesu(1)", "TALLERES NORTE SL"},
        {"txtPesu(2)", "R-1"},
        {"txtPesu(7)", "25,37"},
        {"txtPesu(8)", "10"},
        {"txtPesu(9)", "1"},
        {"txtPesu(5)", "2"},
        {"txtPesu(10)", "40,87"},
        {"txtPesu(11)", "3"},
        {"txtPesu(12)", "122,61"},
        {"txtPesu(16)", "4,44"},
        {"txtPesu(14)", "2,5"},
        {"txtPesu(21)", "1,4"},
        {"txtPesu(22)", "15,5"},
        {"txtPesu(24)", "1,5"},
        {"txtPesu(25)", "9,87"},
        {"Text1(0)", "12,7"},
        {"Text1(1)", "17"},
        {"Text1(2)", "8,51"},
        {"Text1(3)", "69,12"},
        {"Text1(4)", "60,61"},
        {"Text1(6)", "7,1"},
        {"Text1(7)", "25"},
        {"Text1(8)", "7,75"},
        {"Text1(9)", "11,1"},
        {"Text1(10)", "33,3"},
        {"Text1(12)", "8"},
        {"Text1(13)", "2"},
        {"Text1(15)", "180"},
        {"Text1(16)", "40"},
        {"Text1(17)", "77,7"},
        {"Text4(0)", "12,25"},
        {"Text4(1)", "201,5"},
        {"Text4(2)", "55,5"},
        {"Text4(3)", "44,5"},
        {"Text4(4)", "3,14"},
        {"Text4(5)", "1,23"},
        {"Text4(6)", "0"},
        {"Text4(7)", "0"},
        {"txtModulo", "2,5"},
        {"txtObservaciones", "Nota"},
        {"txtExtra", "extra"},
        {"txtCPro", "prov"},
        {"cboHerramienta", "H7"},
        {"cboMatDisco", "001 - Disco F-114"},
        {"cboMatCubo", "002 - Cubo F-1140"},
        {"Text3(5)", "77,7"},
    };
    for (const auto& [name, text] : expected) {
        EXPECT_EQ(workshop.text(name), text) << name;
    }
    EXPECT_TRUE(workshop.fields().chkAcopla.checked());
    EXPECT_FALSE(workshop.fields().bCargandoPropuesta);
    EXPECT_TRUE(workshop.form().enabled());
}

TEST_F(LoadingTest, OpeningAndSavingUnchangedChangesNoStoredFigureOfAnyType) {
    storeEveryType();
    struct Opening {
        const char* exterior;  ///< on either side of the one-piece limit
        bool anew;             ///< a form for each, or one that opens one after the other
    };
    for (const Opening& opening : {Opening{"180", false}, Opening{"180", true}, Opening{"98", false}}) {
        workshop.database->execute(std::string("UPDATE DPI SET DPI_DmExt=") + opening.exterior);
        for (int type = 0; data::findProductType(type); ++type) {
            const std::vector<std::string> stored = storedRow(type + 1);
            if (opening.anew) {
                workshop.openAnew();
            }
            ASSERT_TRUE(workshop.form().msCargarPresupuesto(type + 1, false)) << type;
            workshop.press("cmdCambios");
            workshop.screen.messages.clear();
            workshop.key(screen::Key::f5);
            ASSERT_THAT(messages(), ElementsAre("Datos Grabados satisfactoriamente")) << type;
            EXPECT_THAT(changed(stored, storedRow(type + 1)), IsEmpty()) << type << ", " << opening.exterior;
        }
    }
    EXPECT_THAT(workshop.errors, IsEmpty());
}

TEST_F(LoadingTest, TheWidthsOfAMultipleProductAreTheRowsAndSoAreTheirCopiesOnTheSketch) {
    storeEveryType();
    for (const int type : {4, 5, 6, 7, 12, 14}) {
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(type + 1, true)) << type;
        const std::vector<std::pair<const char*, const char*>> expected{
            {"Text1(9)", "11,1"},     {"Text1(10)", "33,3"},    {"Text1(16)", "40"},    {"Text1(17)", "77,7"},
            {"txtPDM(4)", "11,1"},    {"txtPDM(5)", "33,3"},    {"txtPDM(1)", "40"},    {"txtPDM(3)", "77,7"},
            {"txtTriple(9)", "11,1"}, {"txtTriple(8)", "33,3"}, {"txtTriple(1)", "40"}, {"txtTriple(10)", "77,7"},
            {"Text3(5)", "77,7"},     {"Text4(0)", "12,25"},    {"Text4(1)", "201,5"},  {"Text4(2)", "55,5"},
            {"Text4(3)", "44,5"},     {"Text4(4)", "3,14"},     {"Text4(5)", "1,23"},   {"txtPesu(22)", "15,5"},
        };
        for (const auto& [name, text] : expected) {
            EXPECT_EQ(workshop.text(name), text) << type << " " << name;
        }
    }
}

TEST_F(LoadingTest, TheVariableSketchShowsTheProposalThatIsLoaded) {
    storeEveryType();
    workshop.database->execute("UPDATE DPI SET DPI_AnchoTotal=1,DPI_AnchoCubo=2,DPI_llanta=3 WHERE DPI_Tipo=10");
    for (const int type : {10, 11}) {
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(type + 1, type == 10)) << type;
        const std::vector<std::pair<const char*, const char*>> beside{
            {"txtDCV(0)", "Text1(17)"}, {"txtDCV(1)", "Text1(10)"}, {"txtDCV(2)", "Text1(9)"},
            {"txtDCV(3)", "Text1(14)"}, {"txtDCV(4)", "Text1(18)"}, {"txtDCV(5)", "Text1(16)"},
            {"txtDCV(6)", "Text1(15)"},
        };
        for (const auto& [sketch, field] : beside) {
            EXPECT_EQ(workshop.text(sketch), workshop.text(field)) << type << " " << sketch;
        }
        EXPECT_EQ(workshop.text("Text1(17)"), type == 10 ? "1" : "77,7") << "the stored width";
        EXPECT_EQ(workshop.text("Text1(14)"), "9,4") << "the pulley's field keeps what stood there";
    }
}

TEST_F(LoadingTest, ThePulleysSecondHubIsUnknownAfterALoad) {
    storeEveryType();
    workshop.choose("cboTipoPre", data::variablePulley);
    workshop.set("Text1(14)", "22,5");
    ASSERT_TRUE(workshop.fields().secondHubIsKnown());
    ASSERT_TRUE(workshop.form().msCargarPresupuesto(data::variablePulley + 1, true));
    EXPECT_EQ(workshop.text("Text1(14)"), "22,5") << "it stands there";
    EXPECT_FALSE(workshop.fields().secondHubIsKnown()) << "and is not this pulley's";
    workshop.set("Text1(10)", "30");
    workshop.leave();
    EXPECT_EQ(workshop.text("Text1(17)"), "77,7");
}

TEST_F(LoadingTest, ALoadEndsWithTheApproximateWeightOfThePieceOrWithNone) {
    storeEveryType();
    for (int type = 0; data::findProductType(type); ++type) {
        workshop.form().fields().txtPesu(17).setText("5");
        workshop.form().fields().txtPesu(17).setToolTip("of another piece");
        workshop.form().fields().lblFormulaPeso.setCaption("of another piece");
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(type + 1, true)) << type;
        const bool told = type == data::plainSprocket || type == data::variableSprocket;
        // 180 x 11,1 + 40 x 33,3 less 25 x 77,7 and 8,51 x 11,1 x 17
        EXPECT_EQ(workshop.text("txtPesu(17)"), told ? "-218,34" : "0,00") << type;
        EXPECT_EQ(workshop.text("lblFormulaPeso").empty(), !told) << type;
        EXPECT_EQ(workshop.control("txtPesu(17)").toolTip(), workshop.text("lblFormulaPeso")) << type;
    }
}

TEST_F(LoadingTest, AfterOnesOwnSaveTheApproximateWeightIsThatOfALoad) {
    workshop.choose("cboTipoPre", data::twoHubSprocket);
    workshop.enterToothing();
    ASSERT_NE(workshop.text("txtPesu(17)"), "0,00");
    workshop.enterCustomerAndUnits();
    workshop.key(screen::Key::f5);
    EXPECT_EQ(workshop.text("txtPesu(17)"), "0,00");
    EXPECT_EQ(workshop.text("lblFormulaPeso"), "");
}

TEST_F(LoadingTest, ALoadRunsItsStatementsToTheLetter) {
    store(0, small, ",180,1");
    workshop.form();
    workshop.connection.clear();
    load();
    using namespace statements;
    EXPECT_THAT(workshop.connection.log(),
                ElementsAre("select * from DPI where DPI_ID=1", discs, material("1"), hubs, material("2"),
                            material("1"), material("2"), material("1"), material("2"),
                            history(" WHERE DPI_Z = 17 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 8.51 And "
                                    "Dpi_Tipo = 0 and DPI_Id <> 1 Order by DPI_Fecha DESC")));
}

TEST_F(LoadingTest, AnExteriorOf120UsesTheShortListOfDiscs) {
    store(0, small, ",120,2");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("cboMatDisco"), "002 - Cubo F-1140");
    EXPECT_EQ(workshop.fields().cboMatDisco.listCount(), 3);
}

TEST_F(LoadingTest, AnExteriorAbove120UsesTheFullList) {
    store(0, small, ",120.01,2");
    EXPECT_FALSE(load()) << "material 2 is no disc";
    EXPECT_THAT(messages(), ElementsAre("Error, no se encuentra el indice del material para el disco"));
    workshop.database->execute("UPDATE DPI SET DPI_IdParDisco=4");
    EXPECT_TRUE(load());
    EXPECT_EQ(workshop.text("cboMatDisco"), "004 - Disco tubo");
}

TEST_F(LoadingTest, ADiscNoLongerFlaggedForSmallPiecesIsFoundBySecondSearch) {
    store(0, small, ",100,4");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("cboMatDisco"), "004 - Disco tubo");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(LoadingTest, AMissingMaterialLeavesWithAMessageAndTheTotalsOn) {
    struct Case {
        int type;
        const char* disc;
        const char* hub;
        const char* message;
    };
    const std::vector<Case> cases{
        {0, "99", "2", "Error, no se encuentra el indice del material para el disco"},
        {0, "1", "99", "Error, no se encuentra el ndice del material para el cubo"},
        {0, "NULL", "2", "Error, no se encuentra el indice del material para el disco"},
        {13, "1", "2", "Error, no se encuentra el indice del material para la cremallera"},
    };
    store(0, small, ",180,1");
    for (const Case& each : cases) {
        workshop.database->execute("UPDATE DPI SET DPI_Tipo=" + std::to_string(each.type) +
                                   ",DPI_IdParDisco=" + each.disc + ",DPI_IdParCubo=" + each.hub);
        workshop.screen.messages.clear();
        workshop.openAnew();
        EXPECT_FALSE(load());
        ASSERT_THAT(messages(), ElementsAre(each.message));
        EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::none);
        EXPECT_FALSE(workshop.fields().bCargandoPropuesta);
        EXPECT_TRUE(workshop.form().enabled());
        EXPECT_EQ(workshop.text("txtPesu(3)"), "") << "the steps after it are skipped";
    }
}

TEST_F(LoadingTest, TheStoredWidthStandsInFieldAndLabel) {
    store(4, small + ",DPI_PDM_Tipo,DPI_PDM_x,DPI_PDM_b1,DPI_PDM_h1", ",180,1,1,6.7,7.2,9.45");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("Text3(5)"), workshop.text("Text1(17)"));
    store(0, small, ",180,1");
    ASSERT_TRUE(workshop.form().msCargarPresupuesto(2, false));
    EXPECT_EQ(workshop.text("Text1(17)"), "77,7") << "rim and hub make 44,4";
    EXPECT_EQ(workshop.text("Text3(5)"), "77,7");
}

TEST_F(LoadingTest, AnAcceptedProposalLeavesChangesDisabled) {
    store(0, small + ",DPI_FAcepta,DPI_Orden", ",180,1,'14/01/2026',88");
    ASSERT_TRUE(load(true));
    EXPECT_FALSE(workshop.enabled("cmdCambios"));
    EXPECT_TRUE(workshop.enabled("cmdManoObra"));
    EXPECT_EQ(workshop.text("txtPesu(13)"), "14/01/2026");
    EXPECT_EQ(workshop.text("txtPesu(6)"), "88");
}

TEST_F(LoadingTest, ThePulleysSecondHubIsNotPutOnTheForm) {
    store(11, small + ",DPI_PDM_b1,DPI_PDM_h1", ",180,1,33,22");
    workshop.fields().Text1(18).setText("1");
    workshop.fields().Text1(14).setText("2");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("Text1(18)"), "1");
    EXPECT_EQ(workshop.text("Text1(14)"), "2");
}

TEST_F(LoadingTest, TheSprocketsSecondHubIs) {
    store(10, small + ",DPI_PDM_b1,DPI_PDM_h1", ",180,1,33,22");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("Text1(18)"), "33");
    EXPECT_EQ(workshop.text("Text1(14)"), "22");
}

TEST_F(LoadingTest, AMultipleProductWithoutItsGapEndsTheLoadWithoutAWord) {
    store(4, small + ",DPI_PDM_Tipo", ",180,1,1");
    EXPECT_FALSE(load(true));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(workshop.errors, IsEmpty());
    EXPECT_TRUE(workshop.enabled("cmdManoObra")) << "the buttons are not set";
}

TEST_F(LoadingTest, TheTotalsOfWhatStandsOnTheFormStayOnWithoutTheGap) {
    store(4, small + ",DPI_PDM_Tipo", ",180,1,1");
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    ASSERT_FALSE(load(true));
    const std::string total = workshop.text("txtPesu(10)");
    workshop.set("txtPesu(8)", "500");
    EXPECT_NE(workshop.text("txtPesu(10)"), total) << "off, the earlier proposal would be stored at a stale price";
}

TEST_F(LoadingTest, ADoublesGapAndRimComeFromTheRow) {
    store(4, small + ",DPI_PDM_Tipo,DPI_PDM_x,DPI_PDM_b1,DPI_PDM_h1", ",180,1,1,6.6,7.3,9.4");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("cboDobles"), "ISO 1/2''");
    EXPECT_EQ(workshop.text("Text1(11)"), "6,60");
    EXPECT_EQ(workshop.text("Text1(5)"), "7,3");
    EXPECT_EQ(workshop.text("txtPDM(7)"), "6,60");
    EXPECT_EQ(workshop.text("txtPDM(2)"), "9,4");
}

TEST_F(LoadingTest, AMissingChainIsTakenAsTheFirst) {
    store(4, small + ",DPI_PDM_x,DPI_PDM_b1,DPI_PDM_h1", ",180,1,6.6,7.3,9.4");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.fields().cboDobles.listIndex(), 0);
    EXPECT_THAT(messages(), ElementsAre("Error: No Existen datos para piñon doble de Z 17,00"));
}

TEST_F(LoadingTest, ARacksBarComesBackAsStored) {
    store(13, small, ",0,5");
    workshop.database->execute(
        "UPDATE DPI SET Dpi_Modulo=2,DPI_Pas=6.28,DPI_AC=4.5,DPI_Alt=20,DPI_Llanta=500,DPI_AnchoCubo=30,"
        "DPI_DisCortDM=31,DPI_DisCortAN=501,DPI_DmFon=21,DPI_DisCortPESO=2.2,DPI_DisPVE=1.25,DPI_DisImporte=7.77,"
        "DPI_CosteCorteDisco=3.33");
    ASSERT_TRUE(load());
    const std::vector<std::pair<const char*, const char*>> expected{
        {"Text1(19)", "2,00"},   {"Text1(22)", "20,00"},  {"Text1(24)", "500,00"}, {"Text1(25)", "30,00"},
        {"Text4(50)", "31"},     {"Text4(51)", "501"},    {"Text4(52)", "21"},     {"Text4(53)", "2,2"},
        {"txtPesu(56)", "1,25"}, {"txtPesu(57)", "7,77"}, {"txtPesu(16)", "3,33"}, {"cboMatCre", "005 - Pletina S275"},
    };
    for (const auto& [name, text] : expected) {
        EXPECT_EQ(workshop.text(name), text) << name;
    }
}

TEST_F(LoadingTest, ARacksCutIsWhatItsStoredAmountLeaves) {
    storeEveryType();
    struct Row {
        const char* weight;
        const char* price;
        const char* amount;
        const char* cut;
    };
    for (const Row& row : {Row{"2.2", "1.25", "7.77", "5,02"}, Row{"12.56", "1.2", "17.07", "2,00"},
                           Row{"1.5", "1.13", "3.7", "2,00"}, Row{"2", "10", "1000", "980,00"}}) {
        workshop.database->execute(std::string("UPDATE DPI SET DPI_DisCortPESO=") + row.weight +
                                   ",DPI_DisPVE=" + row.price + ",DPI_DisImporte=" + row.amount + " WHERE DPI_Tipo=13");
        workshop.fields().txtPesu(55).setText("99");
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(data::rack + 1, true));
        EXPECT_EQ(workshop.text("txtPesu(55)"), row.cut);
        const std::string amount = workshop.text("txtPesu(57)");
        workshop.set("txtPesu(9)", "0");
        workshop.set("txtPesu(56)", workshop.text("txtPesu(56)") + "0");
        EXPECT_EQ(workshop.text("txtPesu(57)"), amount) << "worked out again it is the same";
    }
}

TEST_F(LoadingTest, ARacksPitchAndToothHeightAreTheRows) {
    storeEveryType();
    ASSERT_TRUE(workshop.form().msCargarPresupuesto(data::rack + 1, true));
    EXPECT_EQ(workshop.text("Text1(19)"), "2,50");
    EXPECT_EQ(workshop.text("Text1(20)"), "12,70") << "the module gives 7,85";
    EXPECT_EQ(workshop.text("Text1(21)"), "9,90") << "and 5,63";
    EXPECT_EQ(workshop.text("Text1(23)"), "10,10") << "20 less the height stored";
}

TEST_F(LoadingTest, AGearGetsTheRestOfItsPresentation) {
    store(8, small, ",180,1");
    workshop.fields().cboTipoPre.setListIndex(8);
    EXPECT_EQ(workshop.text("Frame2"), "Medidas del piñon");
    ASSERT_TRUE(load());
    EXPECT_EQ(workshop.text("Frame2"), "Medidas del Engranaje");
    EXPECT_TRUE(workshop.visible("txtModulo"));
    EXPECT_FALSE(workshop.visible("Text1(8)"));
}

TEST_F(LoadingTest, ANumberThatNoRowHasTouchesNothingButTheFreeText) {
    workshop.enterToothing();
    workshop.fields().txtExtra.setText("libre");
    std::vector<std::string> before = workshop.texts();
    EXPECT_TRUE(load());
    const std::vector<std::string> after = workshop.texts();
    std::vector<std::string> changed;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] != after[i]) {
            changed.push_back(after[i]);
        }
    }
    EXPECT_THAT(changed, ElementsAre("txtExtra = "));
    EXPECT_FALSE(workshop.enabled("cboTipoPre"));
    EXPECT_FALSE(workshop.fields().bCargandoPropuesta);
    EXPECT_TRUE(workshop.form().enabled());
}

/// A value for each column that a load puts on the form, which no rule would work out: the n-th number is n + 0,25.
std::map<std::string_view, std::string> distinctValues(const data::ProductType& type) {
    std::map<std::string_view, std::string> values;
    for (const estimate::StoredField& field : estimate::storedFields()) {
        if (field.holdsFor(type) && field.load != estimate::Load::never) {
            const std::string n = std::to_string(values.size() + 1);
            values[field.column] = field.kind == session::Tipo::text ? "N'texto " + n + "'" : n + ".25";
        }
    }
    const bool rack = type.shape == data::ProductShape::rack;
    values["DPI_Tipo"] = std::to_string(type.number);
    values["DPI_Acopla"] = "1";
    values["DPI_CodCliente"] = "1001";
    values["DPI_DmExt"] = "180.25";
    values["DPI_IdParDisco"] = rack ? "5" : "1";
    values["DPI_IdParCubo"] = "2";
    if (values.contains("DPI_PDM_Tipo")) {
        values["DPI_PDM_Tipo"] = "1";
    }
    return values;
}

/// Whether the form shows what is stored; of an inner diameter also where the article is no tube.
bool shows(const estimate::FieldMap& f, const estimate::StoredField& field, const sql::Value& stored) {
    const auto* inner = std::get_if<estimate::InnerOfTube>(&field.source);
    const std::string shown = inner ? inner->field.in(f).text() : estimate::storedValue(field, f).value().toText();
    if (field.kind == session::Tipo::text) {
        return shown == stored.toText();
    }
    return runtime::IsNumeric(shown) && runtime::CDbl(shown) == runtime::CDbl(stored.toText());
}

TEST_F(LoadingTest, EveryStoredFieldIsPutOnTheForm) {
    std::vector<std::string> missing;
    for (const data::ProductType& type : data::productTypes) {
        std::string columns;
        std::string values;
        for (const auto& [column, value] : distinctValues(type)) {
            columns += (columns.empty() ? "" : ",") + std::string(column);
            values += (values.empty() ? "" : ",") + value;
        }
        workshop.database->execute("INSERT INTO DPI (" + columns + ") VALUES (" + values + ")");
        const std::string number = workshop.query("SELECT MAX(DPI_Id) FROM DPI");
        workshop.openAnew();
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(runtime::CLng(number), true)) << type.number;
        const sql::Recordset row = workshop.database->execute("SELECT * FROM DPI WHERE DPI_Id = " + number);
        for (const estimate::StoredField& field : estimate::storedFields()) {
            if (field.holdsFor(type) && field.load != estimate::Load::never &&
                !shows(workshop.fields(), field, row[field.column])) {
                missing.push_back(std::to_string(type.number) + " " + std::string(field.column));
            }
        }
    }
    EXPECT_THAT(missing, ElementsAre("11 DPI_PDM_b1", "11 DPI_PDM_h1")) << "the pulley's second hub alone is left out";
}

TEST_F(LoadingTest, ReadOnlyDisablesEveryTextBoxAndTheListsOfTheSteps) {
    store(0, small, ",180,1");
    ASSERT_TRUE(load(false));
    workshop.fields().forEachTextBox([](screen::TextBox& box) { EXPECT_FALSE(box.enabled()) << box.fullName(); });
    for (const char* list : {"cboMatDisco", "cboMatCubo", "cboTipoPre", "cboDobles"}) {
        EXPECT_FALSE(workshop.enabled(list)) << list;
    }
    EXPECT_TRUE(workshop.enabled("cboFiltroHistorico"));
    ASSERT_TRUE(load(true));
    EXPECT_TRUE(workshop.enabled("txtPesu(0)"));
    for (const char* list : {"cboMatDisco", "cboMatCubo", "cboDobles"}) {
        EXPECT_TRUE(workshop.enabled(list)) << list;
    }
    EXPECT_FALSE(workshop.enabled("cboTipoPre"));
    EXPECT_FALSE(workshop.enabled("cboMatCre"));
}

TEST_F(LoadingTest, TheNumberStandsPlainWithoutTheMaskOfTheLists) {
    store(0, small, ",180,1");
    store(0, small, ",180,1");
    load();
    EXPECT_EQ(workshop.text("txtPesu(3)"), "1");
    EXPECT_EQ(workshop.form().buttonsAndGrid().dbgDPI.cellText(0, 0), "000002") << "where the list shows the other";
}

TEST_F(LoadingTest, AStoredToolThatIsNotInTheListIsShownAndKept) {
    store(0, small, ",180,1");
    workshop.database->execute("UPDATE DPI SET DPI_HERRAMIENTA=N'Mandrino'");
    ASSERT_TRUE(load(true));
    EXPECT_EQ(workshop.text("cboHerramienta"), "Mandrino");
    workshop.key(screen::Key::f5);
    EXPECT_EQ(workshop.query("select DPI_HERRAMIENTA from DPI"), "Mandrino");
}

TEST_F(LoadingTest, AStoredToolThatIsNotInTheListIsNotRefused) {
    store(0, small, ",180,1");
    workshop.database->execute("UPDATE DPI SET DPI_HERRAMIENTA=N'Mandrino'");
    workshop.attempt([&] { load(true); });
    EXPECT_THAT(workshop.errors, IsEmpty()) << "a plain list would refuse the text";
    EXPECT_EQ(workshop.fields().cboHerramienta.listIndex(), -1);
}

TEST_F(LoadingTest, ALoadGuardsTheTotalsAlone) {
    store(0, small, ",180,1");
    std::vector<bool> guards;
    workshop.fields().txtPesu(2).onChange = [&] {
        auto& f = workshop.fields();
        guards = {f.bCargandoPropuesta, f.bCargandoDisco, f.bCargandoCubo};
    };
    load();
    EXPECT_THAT(guards, ElementsAre(true, false, false));
}

TEST_F(LoadingTest, ALoadDoesNotGuardDiscAndHub) {
    store(0, small, ",180,1");
    workshop.form();
    workshop.fields().txtPesu(20).setText("x");
    workshop.fields().txtPesu(23).setText("x");
    load();
    EXPECT_EQ(workshop.text("txtPesu(20)"), "0,95") << "choosing the stored materials brings their cost prices";
    EXPECT_EQ(workshop.text("txtPesu(23)"), "1,02");
}

TEST_F(LoadingTest, ALoadDoesNotMoveTheFocusToTheRemarksWhichCouldTakeItAfterwards) {
    store(0, small, ",180,1");
    workshop.choose("cboFiltroHistorico", 2);
    ASSERT_TRUE(load(true));
    EXPECT_TRUE(workshop.control("txtObservaciones").canTakeFocus());
    EXPECT_EQ(workshop.focused(), "cboFiltroHistorico") << "the form was still disabled when it was given";
}

TEST_F(LoadingTest, ANullWhereAValueBelongsIsShownAndTheTotalsComeBack) {
    store(0, small, ",180,1");
    workshop.database->execute("UPDATE DPI SET DPI_ImpMat=NULL");
    workshop.attempt([&] { load(true); });
    EXPECT_THAT(workshop.errorNumbers(), ElementsAre(94));
    EXPECT_FALSE(workshop.fields().bCargandoPropuesta);
    EXPECT_TRUE(workshop.form().enabled());
}

TEST_F(LoadingTest, ACustomersNameThatTheRowLacksIsEmpty) {
    store(0, small, ",180,1");
    workshop.database->execute("UPDATE DPI SET DPI_NomCliente=NULL");
    workshop.attempt([&] { load(true); });
    EXPECT_THAT(workshop.errorNumbers(), ElementsAre());
    EXPECT_EQ(workshop.text("txtPesu(1)"), "");
    EXPECT_FALSE(workshop.fields().bCargandoPropuesta);
}

TEST_F(LoadingTest, AnErrorOnTheWayDoesNotLeaveTheTotalsOff) {
    store(0, small, ",180,1");
    workshop.form();
    workshop.connection.refuse("PARDPI_DISCO=0");
    workshop.attempt([&] { load(true); });
    ASSERT_EQ(workshop.errors.size(), 1u);
    workshop.set("txtPesu(11)", "1");
    workshop.set("txtPesu(8)", "500");
    workshop.leave();
    EXPECT_EQ(workshop.text("txtPesu(12)"), "500");
}

}  // namespace
}  // namespace velmora::proposal
