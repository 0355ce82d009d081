#include "velmora/tracking/frm_seguimiento.h"

#include <algorithm>
#include <map>
#include <set>

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"

#include "tracking_form.h"

namespace velmora::tracking {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class FormTest : public TrackingTest {};

TEST_F(FormTest, OpensEmptyOnPendingProposals) {
    store();
    open();
    EXPECT_EQ(form->caption(), "Seguimiento de Presupuestos");
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_TRUE(fields().rsDpi->isOpen());
    EXPECT_EQ(fields().cboFiltroHistorico.text(), "Solo Pendientes");
    EXPECT_THAT(fields().cboFiltroHistorico.items(), ElementsAre("Solo Aceptados", "Solo Pendientes", "Todos"));
    EXPECT_EQ(fields().cboTipoPre.listIndex(), 0);
    EXPECT_EQ(fields().txtPesu(customerName).text(), "");
}

TEST_F(FormTest, TheTypesFollowAllTypesInTheirStoredOrder) {
    open();
    EXPECT_THAT(fields().cboTipoPre.items(),
                ElementsAre("Todos los tipos", "Piñon Especial", "Disco", "Piñon 2 Cubos", "Poleas Lisas",
                            "Piñon Doble", "Piñon de Dos Cadenas", "Disco Doble", "Disco de Dos Cadenas",
                            "Engranaje Recto", "Disco Engranaje Recto", "Piñon 2 Cubos Variable",
                            "Poleas Lisas 2 Cubos Variable", "Piñon Triple", "Cremallera", "Disco Triple"));
}

TEST_F(FormTest, TellsWhoseProgramItIsAndWhichVersion) {
    open();
    EXPECT_EQ(fields().Label1(10).caption(),
              "VELMORA - Modulo de calculo presupuestario propiedad de :\r\nTalleres Bercial S.L.\r\nDesarrollado por "
              "Ondarel S.L. 2005 Versión nº 12.10.5");
}

TEST_F(FormTest, TheButtonsBearTheirCaptions) {
    open();
    EXPECT_EQ(fields().cmdfiltro.caption(), "&Ejecutar Filtro");
    EXPECT_EQ(fields().XPButton1.caption(), "&Presupuesto Aceptado");
    EXPECT_EQ(fields().XPButton2.caption(), "&Ver Orden de Trabajo");
    EXPECT_EQ(fields().XPButton3.caption(), "&Salir (ESC)");
    EXPECT_EQ(fields().XPButton4.caption(), "&Buscar Propuestas");
    EXPECT_EQ(fields().cmdExcel.caption(), "Exportar a excel");
    EXPECT_EQ(fields().fraMedidas.caption(), "Buscar Propuestas por medidas");
    EXPECT_EQ(fields().fraDatos.caption(), "Datos del Presupuesto");
}

/// The caption of every field that has one beside or above it, by the field's name.
void addCaptions(std::map<std::string, std::string>& captions, const screen::Layout& layout) {
    if (layout.kind == screen::Layout::Kind::field && layout.control != nullptr && !layout.caption.empty()) {
        captions[layout.control->fullName()] = layout.caption;
    }
    for (const screen::Layout& child : layout.children) {
        addCaptions(captions, child);
    }
}

TEST_F(FormTest, TheFieldsBearTheirCaptions) {
    open();
    std::map<std::string, std::string> captions;
    addCaptions(captions, form->layout());
    const std::map<std::string, std::string> expected{
        {"txtCriterio(0)", "De Cliente"},
        {"txtCriterio(1)", "a Cliente"},
        {"txtCriterio(2)", "De Fecha"},
        {"txtCriterio(3)", "a Fecha"},
        {"txtCriterio(4)", "De Numero"},
        {"txtCriterio(5)", "a Numero"},
        {"cboTipoPre", "Tipo de Propuesta"},
        {"cboFiltroHistorico", "  Filtrar Historico por:"},
        {"Text1(0)", "Paso"},
        {"Text1(1)", "Z"},
        {"Text1(2)", "Ø Rodillo"},
        {"Text1(3)", "Modulo"},
        {"Text1(7)", "Eje"},
        {"Text1(8)", "A.C."},
        {"txtPesu(0)", "Codigo Cliente"},
        {"txtPesu(1)", "Nombre Cliente"},
        {"txtPesu(2)", "Ref. Cliente"},
        {"txtPesu(3)", "Pedido. Cliente"},
        {"txtPesu(4)", "Fecha Pedido"},
        {"txtPesu(5)", "Fecha Entrega"},
        {"txtPesu(6)", "Importe Material"},
        {"txtPesu(7)", "Mano Obra"},
        {"txtPesu(8)", "Subcontratados"},
        {"txtPesu(9)", "Varios"},
        {"txtPesu(10)", "Total Pieza"},
        {"txtPesu(11)", "Nº de Piezas"},
        {"txtPesu(12)", "Importe Total"},
    };
    EXPECT_EQ(captions, expected);
    EXPECT_EQ(fields().chkAcopla.caption(), "Acoplamiento");
}

TEST_F(FormTest, EachFieldOfAPairHasItsName) {
    open();
    std::vector<std::string> names;
    fields().txtCriterio.forEach([&](screen::TextBox& box) { names.push_back(box.accessibleName()); });
    EXPECT_THAT(names, ElementsAre("De Cliente", "a Cliente", "De Fecha", "a Fecha", "De Numero", "a Numero"));
}

TEST_F(FormTest, EveryControlHasANameToBeReadOut) {
    open();
    for (const screen::Control* control : form->controls()) {
        const auto* captioned = dynamic_cast<const screen::Captioned*>(control);
        EXPECT_TRUE(!control->accessibleName().empty() || (captioned != nullptr && !captioned->caption().empty()))
            << control->fullName();
    }
}

TEST_F(FormTest, TheGridShowsTheseColumns) {
    store("DPI_Tipo,DPI_Fecha,DPI_FAcepta,DPI_Orden", "4,'10/01/2026 09:30:00','12/01/2026',24001");
    open();
    listAll();
    struct Shown {
        const char* caption;
        int width;
        const char* text;
        bool right = false;
        bool button = false;
    };
    const std::vector<Shown> expected{
        {"Tipo", 1400, "Piñon Doble"},
        {"Presupuesto", 1000, "000001", false, true},
        {"Fecha Presupuesto", 1500, "10/01/2026"},
        {"Fecha Aceptación", 1400, "12/01/2026"},
        {"Orden", 1200, "24001", false, true},
        {"Unidades", 1200, "3", true},
        {"Importe Unidad", 1400, "1.234,50", true},
        {"Cliente", 1000, "1001", true},
        {"Nombre", 6000, "TALLERES NORTE SL"},
    };
    const auto& columns = fields().dbgDPI.columns();
    ASSERT_EQ(columns.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(columns[i].caption, expected[i].caption);
        EXPECT_EQ(columns[i].width, expected[i].width) << columns[i].caption;
        EXPECT_EQ(columns[i].right, expected[i].right) << columns[i].caption;
        EXPECT_EQ(columns[i].button, expected[i].button) << columns[i].caption;
        EXPECT_TRUE(columns[i].visible);
        EXPECT_EQ(fields().dbgDPI.cellText(0, i), expected[i].text) << columns[i].caption;
    }
}

TEST_F(FormTest, EveryTypeHasItsWordInTheGrid) {
    for (int type = -1; type <= 15; ++type) {
        store("DPI_Tipo,DPI_Fecha", std::to_string(type) + ",'" + std::to_string(28 - (type + 1)) + "/01/2026'");
    }
    open();
    listAll();
    std::vector<std::string> words;
    for (std::size_t row = 0; row < fields().dbgDPI.rowCount(); ++row) {
        words.push_back(fields().dbgDPI.cellText(row, 0));
    }
    ASSERT_THAT(words, SizeIs(17));
    EXPECT_EQ(words.front(), "");
    EXPECT_EQ(words.back(), "");
    for (int type = 0; data::findProductType(type); ++type) {
        EXPECT_EQ(words[static_cast<std::size_t>(type) + 1], fields().cboTipoPre.list(type + 1));
    }
}

TEST_F(FormTest, TabGoesFromFiltersToMeasuresToTheListToTheOrderData) {
    open();
    std::vector<std::string> stops;
    for (int i = 0; i < 28 && (stops.empty() || form->activeControl() != &fields().txtCriterio(0)); ++i) {
        stops.push_back(form->activeControl()->fullName());
        form->tabForward();
    }
    EXPECT_THAT(stops, ElementsAre("txtCriterio(0)", "txtCriterio(1)", "txtCriterio(2)", "txtCriterio(3)",
                                   "txtCriterio(4)", "txtCriterio(5)", "cboTipoPre", "cboFiltroHistorico", "chkAcopla",
                                   "cmdfiltro", "Text1(1)", "Text1(0)", "Text1(8)", "Text1(2)", "Text1(3)", "Text1(7)",
                                   "XPButton4", "dbgDPI", "txtPesu(2)", "txtPesu(3)", "txtPesu(4)", "txtPesu(5)",
                                   "txtPesu(11)", "XPButton1", "XPButton2", "cmdExcel", "XPButton3"));
}

// ---- Refused lists ----------------------------------------------------------------------------------------------

TEST_F(FormTest, ARefusedStatementReachesTheUserAndLeavesAnOpenEmptyList) {
    store();
    open();
    listAll();
    ASSERT_THAT(listed(), SizeIs(1));
    shop.connection.refuse("from DPI");
    press(fields().cmdfiltro);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::failure));
    EXPECT_TRUE(fields().rsDpi->isOpen());
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_EQ(fields().txtPesu(customerCode).text(), "1001") << "the panel keeps the last row";
    press(fields().XPButton2);
    cell(1);
    EXPECT_THAT(shop.errors, SizeIs(1)) << "the buttons see that there are no rows";
    press(fields().cmdfiltro);
    EXPECT_THAT(listed(), SizeIs(1));
}

// ---- Keys -------------------------------------------------------------------------------------------------------

TEST_F(FormTest, ReturnMovesOnAndIsSwallowed) {
    open();
    goTo(fields().txtCriterio(0));
    EXPECT_EQ(form->keyDown(screen::Key::enter), screen::Key::none);
    EXPECT_EQ(form->activeControl(), &fields().txtCriterio(1));
    EXPECT_EQ(form->tag(), "");
}

TEST_F(FormTest, TheFirstReturnAfterATagPassesAndClearsIt) {
    open();
    form->setTag("e");
    goTo(fields().txtCriterio(0));
    EXPECT_EQ(form->keyDown(screen::Key::enter), screen::Key::enter);
    EXPECT_EQ(form->activeControl(), &fields().txtCriterio(0));
    EXPECT_EQ(form->tag(), "");
    form->keyDown(screen::Key::enter);
    EXPECT_EQ(form->activeControl(), &fields().txtCriterio(1));
}

TEST_F(FormTest, EscapeAndTheLastButtonLeave) {
    open();
    form->keyDown(screen::Key::escape);
    EXPECT_TRUE(form->isUnloaded());
    open();
    press(fields().XPButton3);
    EXPECT_TRUE(form->isUnloaded());
}

TEST_F(FormTest, ThePadsDecimalPointIsTheCommaKey) {
    open();
    EXPECT_EQ(form->keyDown(screen::Key::padDecimal), screen::Key::comma);
    form->setTag("e");
    EXPECT_EQ(form->keyDown(screen::Key::padDecimal), screen::Key::comma);
    EXPECT_EQ(form->tag(), "e") << "Return alone clears it";
}

// ---- Fields -----------------------------------------------------------------------------------------------------

TEST_F(FormTest, CriteriaTakeDigitsAlone) {
    open();
    for (int i = 0; i <= 5; ++i) {
        type(fields().txtCriterio(i), "1a2,3.4/");
        EXPECT_EQ(criterion(i), "1234") << i;
    }
}

TEST_F(FormTest, ACriterionOfADateIsShownAsOneAndLosesItsSlashesOnEntry) {
    open();
    for (const int date : {int{dateFrom}, int{dateTo}}) {
        type(fields().txtCriterio(date), "150126");
        form->leaveFocus();
        EXPECT_EQ(criterion(date), "15/01/2026");
        goTo(fields().txtCriterio(date));
        EXPECT_EQ(criterion(date), "15012026");
        EXPECT_TRUE(fields().txtCriterio(date).allSelected());
        form->leaveFocus();
        EXPECT_EQ(criterion(date), "15/01/2026") << "passing through a criterion keeps it";
    }
}

TEST_F(FormTest, ADateOfFiveOrOfNineCharactersIsThrownAway) {
    open();
    for (const char* typed : {"1", "15126", "150120261", "15/01/2026"}) {
        set(fields().txtCriterio(dateFrom), typed);
        form->leaveFocus();
        EXPECT_EQ(criterion(dateFrom), "") << typed;
    }
    struct Row {
        const char* typed;
        const char* shown;
    };
    for (const Row& row : {Row{"150126", "15/01/2026"}, Row{"1512026", "1512026"}, Row{"15012026", "15/01/2026"}}) {
        set(fields().txtCriterio(dateFrom), row.typed);
        form->leaveFocus();
        EXPECT_EQ(criterion(dateFrom), row.shown) << row.typed;
    }
}

TEST_F(FormTest, OtherCriteriaStayAsTyped) {
    open();
    for (const int i : {0, 1, 4, 5}) {
        set(fields().txtCriterio(i), "12/3");
        EXPECT_EQ(fields().txtCriterio(i).backColor(), screen::colors::yellow);
        form->leaveFocus();
        goTo(fields().txtCriterio(i));
        form->leaveFocus();
        EXPECT_EQ(criterion(i), "12/3") << i;
        EXPECT_EQ(fields().txtCriterio(i).backColor(), screen::colors::white);
    }
}

TEST_F(FormTest, MeasuresTakeNumbersWithOneComma) {
    open();
    type(fields().Text1(0), "1a2.7,5");
    EXPECT_EQ(measure(0), "12,75");
    form->leaveFocus();
    EXPECT_EQ(measure(0), "12,75");
}

TEST_F(FormTest, AMeasureIsYellowAndSelectedWhileItHasTheFocus) {
    open();
    fields().Text1.forEach([this](screen::TextBox& box) {
        goTo(box);
        EXPECT_EQ(box.backColor(), screen::colors::yellow) << box.fullName();
        EXPECT_TRUE(box.allSelected()) << box.fullName();
        form->leaveFocus();
        EXPECT_EQ(box.backColor(), screen::colors::white) << box.fullName();
    });
}

TEST_F(FormTest, AMeasureIsLeftWithTwoDecimalsAndATextAsZero) {
    open();
    for (const auto& [typed, shown] :
         {std::pair{"12,7", "12,70"}, std::pair{"", "0,00"}, std::pair{"abc", "0,00"}, std::pair{"15,875", "15,88"}}) {
        set(fields().Text1(0), typed);
        form->leaveFocus();
        EXPECT_EQ(measure(0), shown) << typed;
    }
}

// ---- To the proposal --------------------------------------------------------------------------------------------

class OpeningTest : public TrackingTest {
  protected:
    OpeningTest() {
        shop.saveNewProposal();
        shop.screen.messages.clear();
        open();
        listAll();
    }
    void expectProposal(const char* number) {
        shop.screen.queueModal([this, number](screen::Form& shown) {
            auto& main = dynamic_cast<proposal::frmBercialPiñones&>(shown);
            EXPECT_TRUE(main.bConsulta);
            EXPECT_EQ(main.tag(), "");
            EXPECT_EQ(main.fields().txtPesu(3).text(), number);
            EXPECT_FALSE(main.fields().txtPesu(0).enabled()) << "read-only";
            shop.connection.clear();
            ++shownForms;
        });
    }
    /// Makes msCargarPresupuesto fail.
    void spoil() { shop.database->execute("delete from PARDPI where PARDPI_DISCO=1"); }

    int shownForms = 0;
    std::vector<std::string> told;  ///< received by the order component
};

TEST_F(OpeningTest, TheNumbersButtonShowsTheProposalReadOnlyAndListsAnew) {
    expectProposal("1");
    cell(1);
    EXPECT_EQ(shownForms, 1);
    EXPECT_THAT(shop.connection.log(), SizeIs(1)) << "the list, once the proposal was closed";
    EXPECT_EQ(lastCondition(), "where dpi_id <> 0 Order by DPI_Fecha DESC ");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(OpeningTest, OfTheProposalsFormWhatWritesIsOffAndOtherButtonsAreAsTheLoadLeftThem) {
    const std::set<std::string> writing{"cmdNueva",    "XPGrabar",    "cmdCambios",
                                        "cmdManoObra", "cmdDuplicar", "cmdeliminarrPropuesta"};
    std::vector<std::pair<std::string, bool>> loaded;
    shop.form().msCargarPresupuesto(1, false);
    for (const screen::Control* control : shop.form().controls()) {
        if (dynamic_cast<const screen::Button*>(control) != nullptr) {
            loaded.emplace_back(control->fullName(), control->enabled() && !writing.contains(control->fullName()));
        }
    }
    shop.screen.queueModal([&](screen::Form& shown) {
        for (const auto& [name, enabled] : loaded) {
            EXPECT_EQ(shown.find(name)->enabled(), enabled) << name;
        }
    });
    cell(1);
}

TEST_F(OpeningTest, TheButtonsAreNotThoseOfTheHostsConsultation) {
    shop.screen.queueModal([](screen::Form& shown) {
        const auto& buttons = dynamic_cast<proposal::frmBercialPiñones&>(shown).buttonsAndGrid();
        EXPECT_TRUE(buttons.XPImprime.enabled()) << "the host's may not print";
    });
    cell(1);
}

TEST_F(OpeningTest, F8InTheListDoesTheSame) {
    expectProposal("1");
    gridKey(screen::Key::f8);
    EXPECT_EQ(shownForms, 1);
    EXPECT_THAT(shop.connection.log(), SizeIs(1));
}

TEST_F(OpeningTest, TheListFollowsTheFiltersAsTheyStandAfterwards) {
    fields().cboFiltroHistorico.setListIndex(onlyAccepted);
    expectProposal("1");
    cell(1);
    EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(OpeningTest, AProposalThatDoesNotLoadIsNotShownByItsButtonButTheListIsAnew) {
    spoil();
    shop.connection.clear();
    cell(1);
    EXPECT_EQ(shownForms, 0);
    EXPECT_THAT(shop.screen.messages, SizeIs(1));
    EXPECT_EQ(lastCondition(), "where dpi_id <> 0 Order by DPI_Fecha DESC ");
}

TEST_F(OpeningTest, AProposalThatDoesNotLoadIsShownByItsKey) {
    spoil();
    shop.screen.queueModal([this](screen::Form& shown) {
        EXPECT_TRUE(dynamic_cast<proposal::frmBercialPiñones&>(shown).bConsulta);
        ++shownForms;
    });
    gridKey(screen::Key::f8);
    EXPECT_EQ(shownForms, 1);
}

TEST_F(OpeningTest, OtherColumnsHaveNoButtonAndOtherKeysNoDeed) {
    shop.connection.clear();
    for (const int column : {0, 2, 3, 5, 6, 7, 8}) {
        cell(column);
    }
    gridKey(screen::Key::f5);
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(OpeningTest, InAnEmptyListTheButtonsDoNothing) {
    shop.database->execute("delete from DPI");
    press(fields().cmdfiltro);
    shop.connection.clear();
    cell(1);
    cell(4);
    press(fields().XPButton2);
    EXPECT_THAT(shop.errors, IsEmpty());
    EXPECT_THAT(shop.connection.log(), IsEmpty());
}

TEST_F(OpeningTest, InAnEmptyListTheKeysFailForTheUserToSee) {
    shop.database->execute("delete from DPI");
    press(fields().cmdfiltro);
    gridKey(screen::Key::f8);
    gridKey(screen::Key::f9);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(3021, 3021));
    EXPECT_EQ(shownForms, 0);
}

TEST_F(OpeningTest, TheRowThatIsShownIsOpenedWhateverOthersWriteMeanwhile) {
    shop.components.add("KOLTAR.KOLTARD", [this] { return std::make_unique<WatchedOrders>(told); });
    // Several screens of rows, with the workshop's proposal in the middle.
    for (int number = 2; number <= 200; ++number) {
        store("DPI_Fecha", "dateadd(hour," + std::to_string(number) + ",'11/01/2026')");
    }
    shop.database->execute("update DPI set DPI_Orden=24001 where DPI_Id=1");
    listAll();
    const std::vector<std::string> before = listed();
    const auto row = static_cast<std::size_t>(std::ranges::find(before, "000001") - before.begin());
    ASSERT_GT(row, 50u);
    shop.attempt([&] { fields().dbgDPI.moveToRow(row); });
    store("DPI_Fecha", "'02/02/2026'");
    store("DPI_Fecha", "'02/02/2026'");
    shop.database->execute("delete from DPI where DPI_Id > 195 and DPI_Id <= 200");
    EXPECT_EQ(listed(), before) << "scrolled from end to end";

    gridKey(screen::Key::f9);
    EXPECT_THAT(told, Contains("jLoad 24001"));
    expectProposal("1");
    gridKey(screen::Key::f8);
    EXPECT_EQ(shownForms, 1);
    EXPECT_THAT(shop.errors, IsEmpty());
}

// ---- To the order -----------------------------------------------------------------------------------------------

class OrderTest : public OpeningTest {
  protected:
    OrderTest() {
        shop.components.add("KOLTAR.KOLTARD", [this] { return std::make_unique<WatchedOrders>(told); });
    }
    void accept(const std::string& order) {
        shop.database->execute("update DPI set DPI_Orden=" + order + ", DPI_FAcepta='14/01/2026'");
        press(fields().cmdfiltro);
        shop.connection.clear();
    }
};

TEST_F(OrderTest, ItsButtonItsCellAndF9HandTheNumberOver) {
    accept("24001");
    press(fields().XPButton2);
    cell(4);
    gridKey(screen::Key::f9);
    EXPECT_THAT(told, ElementsAre("MyBd", "jLoad 24001", "released", "MyBd", "jLoad 24001", "released", "MyBd",
                                  "jLoad 24001", "released"));
    EXPECT_THAT(shop.connection.log(), IsEmpty()) << "the list is not read anew";
}

TEST_F(OrderTest, AProposalNotYetAcceptedHasNoneAndNothingIsSaid) {
    press(fields().XPButton2);
    cell(4);
    gridKey(screen::Key::f9);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_THAT(shop.errors, IsEmpty());
}

/// Two proposals on the list, the second one current; another user moves and deletes rows around it.
class ListInMotionTest : public OrderTest {
  protected:
    ListInMotionTest() {
        for (const char* order : {"24002", "24003"}) {
            store("DPI_Fecha,DPI_Orden", std::string("'2026-01-10T00:00:00',") + order);
        }
        shop.database->execute("update DPI set DPI_Fecha='2026-01-12T00:00:00', DPI_Orden=24001 where DPI_Id=1");
        shop.database->execute("update DPI set DPI_Fecha='2026-01-11T00:00:00' where DPI_Id=2");
        listAll();
        shop.errors.clear();
        shop.attempt([this] { fields().dbgDPI.moveToRow(0); });
    }
    void othersWrite() {
        shop.database->execute("update DPI set DPI_Fecha='2026-02-01T00:00:00' where DPI_Id=3");
        shop.database->execute("delete from DPI where DPI_Id=2");
    }
};

TEST_F(ListInMotionTest, TheOrderShownIsThatOfTheRowOnShow) {
    othersWrite();
    press(fields().XPButton2);
    cell(4);
    gridKey(screen::Key::f9);
    EXPECT_THAT(told, ElementsAre("MyBd", "jLoad 24001", "released", "MyBd", "jLoad 24001", "released", "MyBd",
                                  "jLoad 24001", "released"));
}

TEST_F(ListInMotionTest, TheProposalOpenedIsThatOfTheRowOnShow) {
    othersWrite();
    expectProposal("1");
    cell(1);
    EXPECT_EQ(shownForms, 1);
    EXPECT_THAT(listed(), ::testing::ElementsAre("000003", "000001")) << "listed anew once it was closed";
    shop.attempt([this] { fields().dbgDPI.moveToRow(1); });
    shop.database->execute("update DPI set DPI_Fecha='2026-03-01T00:00:00' where DPI_Id=1");
    expectProposal("1");
    gridKey(screen::Key::f8);
    EXPECT_EQ(shownForms, 2);
}

TEST_F(OpeningTest, AMissingOrderComponentReachesTheUser) {
    shop.database->execute("update DPI set DPI_Orden=24001");
    press(fields().cmdfiltro);
    press(fields().XPButton2);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(429));
}

}  // namespace
}  // namespace velmora::tracking
