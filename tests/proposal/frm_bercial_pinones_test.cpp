#include "velmora/proposal/frm_bercial_pinones.h"

#include <algorithm>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/text.h"

#include "support/proposal_statements.h"
#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using screen::Key;
using support::ProposalWorkshop;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MainFormTest : public ::testing::Test {
  protected:
    /// Types a text key by key, as the form and then the field see it.
    void type(const std::string& field, const std::string& text) {
        auto& box = dynamic_cast<screen::TextBox&>(workshop.control(field));
        workshop.attempt([&] { workshop.form().moveFocus(box, screen::Form::Insist::yes); });
        box.setText("");
        for (const char32_t character : runtime::toCodePoints(text)) {
            screen::KeyPress press{character};
            box.onKeyPress(press);
            if (press.character != 0) {
                box.setText(box.text() + runtime::toUtf8(press.character));
            }
        }
    }

    ProposalWorkshop workshop;
};

TEST_F(MainFormTest, EachFunctionKeyIsToldOnceInOrder) {
    std::vector<Key> keys;
    for (const screen::KeyWords& row : workshop.form().functionKeys()) {
        EXPECT_FALSE(row.words.empty());
        keys.push_back(row.key);
    }
    EXPECT_TRUE(std::ranges::is_sorted(keys, std::ranges::less_equal{}));
    EXPECT_TRUE(std::ranges::find(keys, Key::f5) != keys.end());
}

TEST_F(MainFormTest, AnEmptyFormIsCaptionedAndItsListsAreFilled) {
    auto& f = workshop.fields();
    EXPECT_EQ(workshop.form().caption(), "Propuestas de Piñones Especiales ( v.12.10.5)");
    EXPECT_THAT(f.cboFiltroHistorico.items(), ElementsAre("Solo Aceptados", "Solo Pendientes", "Todos"));
    EXPECT_EQ(f.cboFiltroHistorico.listIndex(), 2);
    EXPECT_THAT(f.cboHerramienta.items(), ElementsAre("Broca", "H7", "H5"));
    EXPECT_EQ(f.cboHerramienta.text(), "Broca");
    EXPECT_EQ(f.cboTipoPre.listCount(), 15);
    EXPECT_EQ(f.cboTipoPre.text(), "Piñon Especial");
    EXPECT_EQ(f.cboDobles.listCount(), 20);
    EXPECT_EQ(f.cboDobles.text(), "ISO 3/8''");
    EXPECT_THAT(f.cboMatDisco.items(), ElementsAre("001 - Disco F-114", "004 - Disco tubo"));
    EXPECT_THAT(f.cboMatCubo.items(), ElementsAre("002 - Cubo F-1140", "003 - Tubo E355", "005 - Pletina S275"));
    EXPECT_THAT(f.cboMatCre.items(), ElementsAre("005 - Pletina S275"));
}

TEST_F(MainFormTest, AnEmptyProposalHoldsZerosBlanksAndTheShaft) {
    auto& f = workshop.fields();
    for (const int i : {0, 1, 2, 3, 4, 6, 13}) {
        EXPECT_EQ(f.txtPesu(i).text(), "") << "txtPesu " << i;
    }
    for (const int i : {8, 9, 5, 11, 14, 16}) {
        EXPECT_EQ(f.txtPesu(i).text(), "0,00") << "txtPesu " << i;
    }
    for (const int sum : {7, 10, 12}) {
        EXPECT_EQ(f.txtPesu(sum).text(), "0") << "summed once more after it was cleared, by the prices' clearing";
    }
    EXPECT_EQ(f.Text1(0).text(), "0,00");
    EXPECT_EQ(f.Text1(7).text(), "24");
    EXPECT_EQ(f.txtModulo.text(), "0,00");
    for (const auto* box : {&f.txtExtra, &f.txtObservaciones, &f.txtCPro}) {
        EXPECT_EQ(box->text(), "");
    }
}

TEST_F(MainFormTest, BeforeItsLoadTheFieldsHoldAnEmptyProposal) {
    workshop.form();
    EXPECT_THAT(workshop.connection.logged("Dpi_Tipo = -1"),
                ElementsAre(support::statements::history(
                    " WHERE DPI_Z = 0.00 And DPI_Pas = 0.00 And DPI_Ac = 0.00 And DPI_Rodillo = 0.00 And Dpi_Tipo = -1 "
                    "Order by DPI_Fecha DESC")));
}

TEST_F(MainFormTest, BeforeItsLoadTheFieldsAreNotBlank) {
    workshop.form();
    EXPECT_THAT(workshop.connection.logged("WHERE DPI_Z = 0 And DPI_Pas =  And"), IsEmpty())
        << "the first list would be looked for with blank criteria";
}

TEST_F(MainFormTest, ClearingGoesArrayByArrayByRisingIndex) {
    auto& f = workshop.fields();
    f.forEachTextBox([](screen::TextBox& box) { box.setText("9"); });
    class Order : public screen::FormObserver {
      public:
        void controlChanged(screen::Control& control, screen::Property property) override {
            const bool counts = property == screen::Property::text;
            if (counts && (names.empty() || names.back() != control.name())) {
                names.push_back(control.name());
            }
        }
        void formChanged() override {}
        void focusMoved(screen::Control*) override {}
        std::vector<std::string> names;
    } order;
    // Without events the bare order of the writes is seen.
    for (const auto* array : {&f.Text1, &f.Text3, &f.Text4, &f.txtPesu}) {
        array->on(&screen::TextBox::onChange, {[](int) {}});
    }
    workshop.form().addObserver(order);
    workshop.form().msLimpiarCampos();
    workshop.form().removeObserver(order);
    EXPECT_THAT(order.names,
                ElementsAre("Text1", "Text3", "Text4", "txtPesu", "txtPDM", "txtTriple", "txtDCV", "txtCre",
                            "txtModulo", "txtExtra", "txtObservaciones", "txtCPro", "txtPesu", "Text1"));
}

TEST_F(MainFormTest, ThereIsNoArticleBoxToClear) {
    EXPECT_EQ(workshop.form().find("txtArticulo"), nullptr);
    workshop.fields().txtPesu(2).setText("ref");
    workshop.fields().Text1(7).setText("30");
    workshop.form().msLimpiarCampos();
    EXPECT_EQ(workshop.text("txtPesu(2)"), "");
    EXPECT_EQ(workshop.text("Text1(7)"), "24,00") << "the start then writes 24, clearing does not";
}

TEST_F(MainFormTest, TheFormulaOfEachArticleIsOnFromTheStartAndALoadLeavesIt) {
    EXPECT_TRUE(workshop.fields().chkFormulas.checked());
    workshop.saveNewProposal();
    workshop.fields().chkFormulas.setChecked(false);
    workshop.form().msCargarPresupuesto(1, true);
    EXPECT_FALSE(workshop.fields().chkFormulas.checked());
}

TEST_F(MainFormTest, EscapeClosesUnsavedEntryWithoutAQuestion) {
    workshop.enterToothing();
    workshop.connection.clear();
    workshop.key(Key::escape);
    EXPECT_TRUE(workshop.form().isUnloaded());
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
}

TEST_F(MainFormTest, TheExitButtonClosesToo) {
    workshop.press("XPSalir");
    EXPECT_TRUE(workshop.form().isUnloaded());
}

TEST_F(MainFormTest, EnterGoesToTheNextFieldAndIsSwallowed) {
    workshop.set("txtPesu(0)", "1001");
    EXPECT_EQ(workshop.form().keyDown(Key::enter), Key::none);
    EXPECT_EQ(workshop.focused(), "txtPesu(2)") << "the name was found";
    EXPECT_EQ(workshop.text("txtPesu(1)"), "TALLERES NORTE SL");
}

TEST_F(MainFormTest, EnterStopsAtTheNameOfACustomerWithoutOne) {
    workshop.set("txtPesu(0)", "1003");
    workshop.key(Key::enter);
    EXPECT_EQ(workshop.focused(), "txtPesu(1)");
}

TEST_F(MainFormTest, F4GoesToTheHistoryAndF7ToThePieces) {
    workshop.set("txtPesu(0)", "1001");
    workshop.key(Key::f7);
    EXPECT_EQ(workshop.focused(), "txtPesu(11)");
    workshop.key(Key::f4);
    EXPECT_EQ(workshop.focused(), "dbgDPI");
}

TEST_F(MainFormTest, ANewProposalAfterASaveIsAskedForWithoutAQuestion) {
    workshop.saveNewProposal();
    workshop.screen.messages.clear();
    workshop.form().buttonsAndGrid().cmdNueva.onClick();
    EXPECT_TRUE(workshop.screen.messages.empty());
    EXPECT_EQ(workshop.text("txtPesu(3)"), "");
    EXPECT_EQ(workshop.text("Text1(1)"), "0,00");
    EXPECT_EQ(workshop.focused(), "txtPesu(0)");
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    workshop.key(Key::f5);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "2");
}

TEST_F(MainFormTest, ANewProposalAsksBeforeTypedTextsAreDiscarded) {
    workshop.set("txtPesu(11)", "7");
    workshop.screen.cancelsQuestions = true;
    workshop.form().buttonsAndGrid().cmdNueva.onClick();
    ASSERT_EQ(workshop.screen.messages.size(), 1U);
    EXPECT_EQ(workshop.text("txtPesu(11)"), "7");
}

TEST_F(MainFormTest, EnterPassesOverNumberDatesAndOrder) {
    std::vector<std::string> stops;
    workshop.set("txtPesu(0)", "");
    do {
        stops.push_back(workshop.focused());
        workshop.key(Key::enter);
    } while (workshop.focused() != "txtPesu(0)" && stops.size() < 200);
    for (const char* passedOver : {"txtPesu(3)", "txtPesu(4)", "txtPesu(6)", "txtPesu(13)"}) {
        EXPECT_THAT(stops, ::testing::Not(::testing::Contains(passedOver)));
        EXPECT_FALSE(workshop.control(passedOver).tabStop());
        EXPECT_TRUE(workshop.control(passedOver).canTakeFocus()) << "it could take the focus";
    }
    EXPECT_EQ(workshop.text("txtPesu(3)"), "") << "a round by keys leaves a new proposal without a number";
    EXPECT_EQ(workshop.text("txtPesu(4)"), "");
}

TEST_F(MainFormTest, LeavingTheDateWouldMaskItAsAnAmount) {
    workshop.fields().txtPesu(4).setText("15/01/2026");
    workshop.form().moveFocus(workshop.fields().txtPesu(4));
    workshop.leave();
    EXPECT_EQ(workshop.text("txtPesu(4)"), "0,00") << "this is why the keys pass it over";
}

TEST_F(MainFormTest, ThePadsDecimalKeyIsACommaInAnyField) {
    for (const char* field : {"Text1(0)", "Text4(1)", "txtPesu(8)", "txtPesu(1)", "txtObservaciones"}) {
        workshop.set(field, "");
        EXPECT_EQ(workshop.form().keyDown(Key::padDecimal), Key::comma) << field;
    }
}

TEST_F(MainFormTest, KeysAreFilteredByField) {
    struct Typed {
        const char* field;
        const char* result;
    };
    const std::vector<Typed> all{
        {"Text1(0)", "12,5"},     {"Text1(1)", "125"},       {"Text1(12)", "125"},           {"Text1(13)", "125"},
        {"Text1(17)", "12,5"},    {"Text4(0)", "12,5"},      {"Text4(4)", "12,5"},           {"txtPesu(4)", "12,5"},
        {"txtPesu(5)", "12,5"},   {"txtPesu(7)", "12,5"},    {"txtPesu(12)", "12,5"},        {"txtPesu(14)", "12,5"},
        {"txtPesu(17)", "12,5"},  {"txtPesu(21)", "12,5"},   {"txtPesu(22)", "12,5"},        {"txtPesu(24)", "12,5"},
        {"txtPesu(25)", "12,5"},  {"txtPesu(0)", "1a2.5,"},  {"txtPesu(1)", "1a2.5,"},       {"txtPesu(2)", "1a2.5,"},
        {"txtPesu(3)", "1a2.5,"}, {"txtPesu(13)", "1a2.5,"}, {"txtPesu(20)", "1a2.5,"},      {"txtPesu(23)", "1a2.5,"},
        {"txtExtra", "1a2.5,"},   {"txtCPro", "1a2.5,"},     {"txtObservaciones", "1a2.5,"},
    };
    workshop.screen.cancelsQuestions = true;
    for (const Typed& typed : all) {
        workshop.openAnew();
        workshop.enterToothing();
        type(typed.field, "1a2.5,");
        EXPECT_EQ(workshop.text(typed.field), typed.result) << typed.field;
    }
}

TEST_F(MainFormTest, AMinusIsLetThroughAheadOfTheDigitsOnly) {
    type("Text1(0)", "-1-2");
    EXPECT_EQ(workshop.text("Text1(0)"), "-12");
    type("Text1(13)", "1-2");
    EXPECT_EQ(workshop.text("Text1(13)"), "12");
}

TEST_F(MainFormTest, AFieldIsYellowWithTheFocusAndWhiteWithout) {
    for (const char* field : {"Text1(0)", "Text4(1)", "txtPesu(2)"}) {
        workshop.set(field, "1");
        EXPECT_EQ(workshop.control(field).backColor(), 65535) << field;
        EXPECT_FALSE(dynamic_cast<screen::TextBox&>(workshop.control(field)).allSelected()) << "typing deselects";
        workshop.leave();
        EXPECT_EQ(workshop.control(field).backColor(), 16777215) << field;
    }
}

TEST_F(MainFormTest, TheRemarksAreRedWithTheFocusAndYellowAfterwards) {
    workshop.set("txtObservaciones", "x");
    EXPECT_EQ(workshop.control("txtObservaciones").backColor(), 255);
    workshop.leave();
    EXPECT_EQ(workshop.control("txtObservaciones").backColor(), 65535);
    workshop.set("Text1(0)", "1");
    EXPECT_EQ(workshop.control("Text1(0)").backColor(), 65535) << "the next field is painted in its own colour";
}

TEST_F(MainFormTest, TheRemarksDoNotTurnWhiteAsOtherFieldsDo) {
    workshop.set("txtObservaciones", "x");
    workshop.set("txtPesu(2)", "x");
    workshop.leave();
    EXPECT_EQ(workshop.control("txtObservaciones").backColor(), screen::colors::yellow);
    EXPECT_EQ(workshop.control("txtPesu(2)").backColor(), screen::colors::white);
}

TEST_F(MainFormTest, SavingIsStoppedByTheSwitchThatNothingSets) {
    EXPECT_FALSE(workshop.form().bBloqueoGrabar);
    workshop.form().bBloqueoGrabar = true;
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
}

TEST_F(MainFormTest, SavingNeedsItsButtonEnabledAndShowsTheHourglass) {
    workshop.control("XPGrabar").setEnabled(false);
    workshop.saveNewProposal();
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
    workshop.control("XPGrabar").setEnabled(true);
    workshop.screen.pointers.clear();
    workshop.key(Key::f5);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "1");
    EXPECT_EQ(workshop.screen.pointers.front(), screen::Pointer::hourglass);
    EXPECT_EQ(workshop.screen.pointers.back(), screen::Pointer::normal);
}

TEST_F(MainFormTest, TheSaveButtonGoesByTheKey) {
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    workshop.form().bBloqueoGrabar = true;
    workshop.press("XPGrabar");
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
    workshop.form().bBloqueoGrabar = false;
    workshop.press("XPGrabar");
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "1");
}

TEST_F(MainFormTest, ActivatingLeavesTheFocusAloneWithoutConsultation) {
    workshop.set("Text1(1)", "5");
    workshop.form().activate();
    EXPECT_EQ(workshop.focused(), "Text1(1)");
}

TEST_F(MainFormTest, InConsultationTheTotalOrTheFilterTakesTheFocus) {
    workshop.form().bConsulta = true;
    workshop.form().activate();
    EXPECT_EQ(workshop.focused(), "txtPesu(12)");
    workshop.leave();
    workshop.control("txtPesu(12)").setEnabled(false);
    workshop.form().activate();
    EXPECT_EQ(workshop.focused(), "cboFiltroHistorico");
}

TEST_F(MainFormTest, AFocusThatCannotBeGivenOnActivationIsShown) {
    workshop.form().bConsulta = true;
    workshop.control("txtPesu(12)").setEnabled(false);
    workshop.control("cboFiltroHistorico").setEnabled(false);
    workshop.attempt([&] { workshop.form().activate(); });
    EXPECT_THAT(workshop.errorNumbers(), ElementsAre(5));
}

TEST_F(MainFormTest, PrintingNeedsANumberADateAndItsButton) {
    class Press final : public components::Printing {
      public:
        explicit Press(std::vector<std::int32_t>& printed) : printed_(printed) {}
        void setMyBd(session::Session&) override { given_ = true; }
        void jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) override {
            EXPECT_TRUE(given_);
            EXPECT_FALSE(bOrden);
            printed_.push_back(nIdDpi);
        }

      private:
        std::vector<std::int32_t>& printed_;
        bool given_ = false;
    };
    std::vector<std::int32_t> printed;
    workshop.components.add("VELMORAIMP.VMORAIMP", [&] { return std::make_unique<Press>(printed); });
    workshop.key(Key::f8);
    workshop.press("XPImprime");
    EXPECT_THAT(printed, IsEmpty()) << "a new proposal";
    workshop.saveNewProposal();
    workshop.key(Key::f8);
    workshop.press("XPImprime");
    EXPECT_THAT(printed, ElementsAre(1, 1));
    workshop.fields().txtPesu(3).setText("0");
    workshop.key(Key::f8);
    workshop.fields().txtPesu(3).setText("uno");
    workshop.key(Key::f8);
    workshop.fields().txtPesu(3).setText("1");
    workshop.control("XPImprime").setEnabled(false);
    workshop.key(Key::f8);
    EXPECT_THAT(printed, ElementsAre(1, 1));
}

TEST_F(MainFormTest, AMissingPrintingComponentIsShown) {
    workshop.saveNewProposal();
    workshop.key(Key::f8);
    EXPECT_THAT(workshop.errorNumbers(), ElementsAre(429));
}

TEST_F(MainFormTest, NumberDatesAndOrderAreLockedForTypingInEveryState) {
    const auto expectLocked = [&](const char* state) {
        for (const int field : {3, 4, 6, 13}) {
            EXPECT_TRUE(workshop.fields().txtPesu(field).locked()) << field << " " << state;
        }
        EXPECT_FALSE(workshop.fields().txtPesu(0).locked()) << state;
    };
    expectLocked("new");
    for (int type = 0; data::findProductType(type); ++type) {
        workshop.fields().cboTipoPre.setListIndex(type);
        expectLocked("of another type");
    }
    workshop.fields().cboTipoPre.setListIndex(0);
    workshop.press("cmdCambios");
    expectLocked("new, after changes");
    workshop.saveNewProposal();
    EXPECT_TRUE(workshop.enabled("txtPesu(3)")) << "a load enables it as any other";
    expectLocked("saved");
    workshop.form().msCargarPresupuesto(1, false);
    expectLocked("read-only");
    workshop.press("cmdCambios");
    expectLocked("opened for changes");
    workshop.database->execute("UPDATE DPI SET DPI_FAcepta=getdate(), DPI_Orden=7");
    workshop.form().msCargarPresupuesto(1, true);
    expectLocked("accepted");
    workshop.database->execute("UPDATE DPI SET DPI_FAcepta=null, DPI_Orden=null");
    workshop.form().msCargarPresupuesto(1, true);
    workshop.screen.queue(screen::Answer::yes);
    workshop.key(Key::f9);
    expectLocked("new, after a deletion");
}

// ---- Consultation -----------------------------------------------------------------------------------------------

class ConsultationTest : public MainFormTest {
  protected:
    ConsultationTest() {
        workshop.saveNewProposal();
        workshop.openAnew();
        workshop.saveNewProposal();
        workshop.openAnew();
        workshop.screen.messages.clear();
        workshop.form().msCargarPresupuesto(1, false);
        workshop.form().bConsulta = true;
        workshop.form().activate();
    }
    /// Every way to write that a person has, and those that only code has.
    void expectNothingWrites() {
        const std::vector<std::string> rows = allRows();
        for (const char* button : {"XPGrabar", "cmdCambios", "cmdManoObra", "cmdDuplicar", "cmdeliminarrPropuesta"}) {
            EXPECT_FALSE(workshop.enabled(button)) << button;
            dynamic_cast<screen::Button&>(workshop.control(button)).onClick();
        }
        for (const Key key : {Key::f1, Key::f5, Key::f6, Key::f9}) {
            workshop.key(key);
        }
        EXPECT_FALSE(workshop.form().msGrabar(true));
        EXPECT_THAT(workshop.screen.messages, IsEmpty());
        EXPECT_THAT(workshop.errors, IsEmpty());
        EXPECT_EQ(allRows(), rows);
        EXPECT_FALSE(workshop.form().isUnloaded());
    }
    std::vector<std::string> allRows() {
        std::vector<std::string> rows;
        for (sql::Recordset row = workshop.database->execute("select * from DPI"); !row.eof(); row.moveNext()) {
            for (std::size_t column = 0; column < row.columns().size(); ++column) {
                rows.push_back(row[column].isNull() ? "NULL" : row[column].toText());
            }
        }
        return rows;
    }
};

TEST_F(ConsultationTest, NothingWrites) {
    expectNothingWrites();
    EXPECT_FALSE(workshop.enabled("txtPesu(0)"));
    EXPECT_TRUE(workshop.enabled("XPImprime")) << "who is shown it by the list may print it";
}

TEST_F(ConsultationTest, NothingWritesAfterAnotherProposalWasOpenedFromItsHistory) {
    ASSERT_EQ(workshop.form().buttonsAndGrid().dbgDPI.rowCount(), 1u);
    workshop.screen.queue(screen::Answer::yes);
    workshop.form().buttonsAndGrid().dbgDPI.onButtonClick(0);
    EXPECT_EQ(workshop.text("txtPesu(3)"), "2");
    workshop.screen.messages.clear();
    expectNothingWrites();
    EXPECT_FALSE(workshop.enabled("txtPesu(0)"));
}

TEST_F(ConsultationTest, NothingWritesWhereTheProposalCouldNotBeLoaded) {
    workshop.openAnew();
    workshop.form().msCargarPresupuesto(4711, false);
    workshop.form().bConsulta = true;
    workshop.form().activate();
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    expectNothingWrites();
}

TEST_F(ConsultationTest, WithoutItTheWaysAreOpen) {
    workshop.openAnew();
    workshop.form().msCargarPresupuesto(1, false);
    workshop.form().activate();
    for (const char* button : {"XPGrabar", "cmdCambios", "cmdDuplicar", "cmdeliminarrPropuesta"}) {
        EXPECT_TRUE(workshop.enabled(button)) << button;
    }
}

}  // namespace
}  // namespace velmora::proposal
