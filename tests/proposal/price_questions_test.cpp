#include "velmora/proposal/price_questions.h"

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/proposal/field_names.h"
#include "velmora/proposal/price_explanation_form.h"
#include "velmora/proposal/price_ladder_form.h"

#include "support/fake_services.h"
#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class PriceQuestionsTest : public ::testing::Test {
  protected:
    /// What is read in the window that F12 opens.
    void why(const std::function<void(PriceExplanationForm&)>& user) {
        shop.screen.queueModal([&](screen::Form& form) { user(dynamic_cast<PriceExplanationForm&>(form)); });
        shop.key(screen::Key::f12);
    }
    static std::string words(const screen::Form& form) {
        return dynamic_cast<const screen::TextBox&>(*form.find("txtPorque")).text();
    }
    static void press(screen::Form& form, std::string_view button) {
        dynamic_cast<screen::Button&>(*form.find(button)).onClick();
    }

    support::ProposalWorkshop shop;
};

/// What is neither entered nor the proposal's identity has been calculated or looked up.
bool isCalculated(const screen::TextBox& box) {
    constexpr std::array identity{money::customerName, money::proposal, money::created, money::workOrder,
                                  money::accepted};
    // Entered, but no stops for a rack, which has no bore.
    constexpr std::array ofBore{measure::keyway, measure::setScrews};
    const bool isOfBore = box.name() == "Text1" && std::ranges::find(ofBore, box.index()) != ofBore.end();
    const bool ofTheEstimate = box.name() == "Text1" || box.name() == "Text4" || box.name() == "txtPesu";
    const bool isIdentity = box.name() == "txtPesu" && std::ranges::find(identity, box.index()) != identity.end();
    return ofTheEstimate && !isIdentity && !isOfBore && toolkit::isSeen(box) && !box.tabStop();
}

TEST_F(PriceQuestionsTest, EveryCalculatedFieldOfEveryTypeTellsItsFigure) {
    shop.enterToothing();
    for (const data::ProductType& type : data::productTypes) {
        shop.choose("cboTipoPre", type.number);
        std::size_t calculated = 0;
        shop.fields().forEachTextBox([&](estimate::TextBox& box) {
            if (isCalculated(box)) {
                ++calculated;
                ASSERT_TRUE(box.explanation) << type.name << ": " << box.fullName();
                EXPECT_THAT(box.explanation(), HasSubstr("Regla: ")) << type.name << ": " << box.fullName();
                EXPECT_TRUE(box.onExplain) << type.name << ": " << box.fullName();
            }
        });
        EXPECT_GE(calculated, 8U) << type.name;
    }
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(PriceQuestionsTest, AFieldThatIsOnlyEnteredAsksNothing) {
    EXPECT_FALSE(shop.fields().txtPesu(money::pieces).explanation);
    EXPECT_FALSE(shop.fields().txtPesu(money::pieces).onExplain);
    shop.choose("cboTipoPre", data::rack);
    EXPECT_FALSE(shop.fields().Text1(measure::exterior).onExplain) << "a rack has none";
}

TEST_F(PriceQuestionsTest, TheWindowBeginsWithTheFigureInTheFocus) {
    shop.enterToothing();
    shop.set("Text1(15)", "170");
    why([](PriceExplanationForm& form) {
        EXPECT_THAT(words(form), StartsWith("Ø Exterior: 170 mm\r\n"));
        EXPECT_THAT(words(form), HasSubstr("Escrito a mano: 170 mm. Con los datos de ahora la regla da 159 mm."));
        auto& grid = dynamic_cast<screen::DataGrid&>(*form.find("dbgCifras"));
        EXPECT_EQ(grid.cellText(2, 3), "Escrito a mano");
        grid.moveToRow(0);
        EXPECT_THAT(words(form), StartsWith("Ø Primitivo: 153,79 mm\r\n"));
    });
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(PriceQuestionsTest, AFieldsOwnQuestionOpensTheWindowAtItsFigure) {
    shop.enterToothing();
    shop.screen.queueModal([](screen::Form& form) { EXPECT_THAT(words(form), StartsWith("Peso del disco: ")); });
    shop.fields().Text4(cut::discWeight).onExplain();
}

TEST_F(PriceQuestionsTest, AskingChangesNothing) {
    shop.saveNewProposal();
    const std::vector<std::string> before = shop.texts();
    shop.connection.clear();
    why([](PriceExplanationForm& form) { EXPECT_GT(form.figures().size(), 20U); });
    EXPECT_EQ(shop.texts(), before);
    for (const std::string& statement : shop.connection.logged("")) {
        EXPECT_THAT(statement, ::testing::MatchesRegex("[Ss](ELECT|elect) .*")) << "nothing is written";
    }
}

TEST_F(PriceQuestionsTest, AStoredProposalThatWasReadIsWhatItsRulesGive) {
    shop.saveNewProposal();
    why([](PriceExplanationForm& form) {
        EXPECT_THAT(form.caption(), HasSubstr("Piñon Especial, propuesta 1"));
        for (const estimate::Explanation& figure : form.figures()) {
            EXPECT_EQ(figure.origin, estimate::Origin::calculated) << estimate::textOf(figure);
        }
    });
}

TEST_F(PriceQuestionsTest, AllFiguresAreCopiedAsOneText) {
    support::FakeServices services;
    platform::Desk desk{shop.screen, shop.components, services, shop.clock};
    PriceExplanationForm form(desk, "Disco, propuesta 7",
                              {{.field = nullptr,
                                .topic = estimate::Topic::price,
                                .title = "Importe Total",
                                .unit = "€",
                                .shown = "30",
                                .rule = "Total Pieza × Nº de Piezas",
                                .inputs = {{.name = "Total Pieza", .value = "10 €", .source = "escrito a mano"}},
                                .steps = {},
                                .rounding = "a céntimos",
                                .result = "30",
                                .obstacle = {}}});
    press(form, "cmdCopiar");
    EXPECT_THAT(services.copied,
                ElementsAre("Por qué este precio: Disco, propuesta 7\n\nPrecio\n\nImporte Total: 30 €\nRegla: Total "
                            "Pieza × Nº de Piezas\n· Total Pieza: 10 € (escrito a mano)\nResultado: 30 €\nRedondeo: a "
                            "céntimos\n"));
    EXPECT_EQ(form.status().deed(), "Copiado al portapapeles");
}

TEST_F(PriceQuestionsTest, WithoutAClipboardThatIsSaid) {
    PriceExplanationForm form(shop.desk, "Disco", {});
    press(form, "cmdCopiar");
    EXPECT_THAT(form.status().note(), HasSubstr("no hay portapapeles"));
}

// --- The ladder ----------------------------------------------------------------------------------------------------

class PriceLadderFormTest : public PriceQuestionsTest {
  protected:
    /// What is read in the ladder behind the window that F12 opens.
    void ladder(const std::function<void(PriceLadderForm&)>& user) {
        why([&](PriceExplanationForm& form) {
            shop.screen.queueModal([&](screen::Form& inner) { user(dynamic_cast<PriceLadderForm&>(inner)); });
            press(form, "cmdEscala");
        });
    }
    static std::vector<std::string> rows(const screen::Form& form) {
        const auto& grid = dynamic_cast<const screen::DataGrid&>(*form.find("dbgEscala"));
        std::vector<std::string> all;
        for (std::size_t i = 0; i < grid.rowCount(); ++i) {
            all.push_back(grid.cellText(i, 0) + " | " + grid.cellText(i, 1) + " | " + grid.cellText(i, 2));
        }
        return all;
    }
    static void add(PriceLadderForm& form, std::string_view pieces) {
        auto& box = dynamic_cast<screen::TextBox&>(*form.find("txtPiezas"));
        box.setFocus();
        box.setText(pieces);
        form.keyDown(screen::Key::enter);
    }
};

TEST_F(PriceLadderFormTest, EachStepIsWhatTheFormShowsOnceThatNumberIsTyped) {
    for (const int type : {data::plainSprocket, data::disc, data::twoHubSprocket, data::smoothPulley}) {
        shop.openAnew();
        shop.choose("cboTipoPre", type);
        shop.enterToothing();
        shop.set("txtPesu(8)", "21,37");
        shop.enterCustomerAndUnits();
        std::vector<estimate::LadderStep> steps;
        ladder([&](PriceLadderForm& form) {
            add(form, "7");
            steps = form.steps();
        });
        ASSERT_EQ(steps.size(), 8U);
        for (const estimate::LadderStep& step : steps) {
            shop.set("txtPesu(11)", runtime::CStr(step.pieces));
            shop.leave();
            EXPECT_EQ(runtime::CDbl(shop.text("txtPesu(10)")), step.piece) << type << ", " << step.pieces;
            EXPECT_EQ(runtime::CDbl(shop.text("txtPesu(12)")), step.lot) << type << ", " << step.pieces;
        }
    }
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(PriceLadderFormTest, TheUsualNumbersAreListedAndOthersAddedInOrder) {
    shop.set("txtPesu(8)", "10");
    shop.leave();
    ladder([](PriceLadderForm& form) {
        EXPECT_THAT(rows(form),
                    ElementsAre("1 | 10,00 | 10,00", "2 | 10,00 | 20,00", "5 | 10,00 | 50,00", "10 | 10,00 | 100,00",
                                "20 | 10,00 | 200,00", "50 | 10,00 | 500,00", "100 | 10,00 | 1.000,00"));
        add(form, "12");
        add(form, "12");
        add(form, "x");
        EXPECT_THAT(form.status().note(), HasSubstr("mayor que cero"));
        EXPECT_EQ(rows(form).size(), 8U);
        EXPECT_EQ(rows(form)[4], "12 | 10,00 | 120,00");
        EXPECT_EQ(form.activeControl()->fullName(), "txtPiezas") << "ready for the next number";
        EXPECT_FALSE(form.find("cboSierra")->isEnabled()) << "there is nothing to spread";
    });
}

TEST_F(PriceLadderFormTest, TheSawChargeIsSpreadOverEachNumberOnRequest) {
    shop.set("txtPesu(8)", "10");
    shop.set("txtPesu(11)", "1");
    shop.set("txtPesu(14)", "20");
    shop.leave();
    ladder([](PriceLadderForm& form) {
        EXPECT_EQ(rows(form)[1], "2 | 30,00 | 60,00");
        dynamic_cast<screen::ComboBox&>(*form.find("cboSierra")).choose(1);
        EXPECT_EQ(rows(form)[0], "1 | 30,00 | 30,00");
        EXPECT_EQ(rows(form)[1], "2 | 20,00 | 40,00");
        EXPECT_EQ(rows(form)[6], "100 | 10,20 | 1.020,00");
    });
}

}  // namespace
}  // namespace velmora::proposal
