#include "velmora/estimate/explanation/explanations.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"
#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/sql/db_error.h"

#include "../wired_fields.h"

namespace velmora::support {
namespace {

namespace cut = estimate::cut;
namespace measure = estimate::measure;
namespace money = estimate::money;

using estimate::Explanation;
using estimate::Origin;
using ::testing::Contains;
using ::testing::HasSubstr;

/// A proposal that is entered at random. The chain and the gear tables have a row for each number of teeth asked for.
class ExplanationsTest : public WiredFields {
  protected:
    ExplanationsTest() {
        database.answerAllThatBegin("Select * from PDM where ",
                                    {"PDM_Paso", "PDM_AC", "PDM_Rodillo", "PDM_b1", "PDM_b2", "PDM_X", "PDM_H1",
                                     "PDM_De", "PDM_Dp", "PDM_Df", "PDM_Dm", "PDM_D2", "PDM_A"},
                                    {{19.05, 11.68, 12.07, 8, 20, 4, 2.5, 136, 127.82, 115.75, 90, 20, 45}});
        const std::vector<std::string> gearColumns{"ENG_Modulo", "ENG_Z",  "ENG_Paso", "ENG_Dp", "ENG_Di", "ENG_De",
                                                   "ENG_Dm",     "ENG_D1", "ENG_H",    "ENG_A",  "ENG_B",  "ENG_C"};
        database.answerAllThatBegin("Select * from eng where ", gearColumns,
                                    {{4, 40, 12.57, 160, 150, 168, 95, 24, 9, 65, 40, 25}});
    }

    estimate::Explanations explanations() {
        return {fields(), {parts().cutPrices, parts().constants, parts().weights, session}};
    }
    Explanation explained(const screen::TextBox& box) {
        const auto found = explanations().of(box);
        EXPECT_TRUE(found) << box.fullName();
        return found.value_or(Explanation());
    }

    std::string among(std::initializer_list<const char*> texts) {
        return *(texts.begin() + static_cast<std::ptrdiff_t>(random_() % texts.size()));
    }
    std::string amountUpTo(int euros) {
        return runtime::CStr(static_cast<double>(random_() % (static_cast<unsigned>(euros) * 100)) / 100);
    }

    void enterPiece(const data::ProductType& type) {
        chooseType(type.number);
        if (type.shape == data::ProductShape::rack) {
            enterRack();
        } else if (type.toothing == data::Toothing::gear) {
            parts().gears.takeOver(1);
        } else if (type.chainList) {
            fields().cboDobles.setListIndex(static_cast<int>(random_() % 5));
            enter(fields().Text1(measure::teeth), among({"17", "21", "40"}));
            leave();
        } else {
            enterWheel(type);
        }
        // In the order of work, which is where the cut of a disc above the one-piece limit is calculated.
        fields().cboMatDisco.choose(static_cast<int>(random_() % 2));
        fields().cboMatCubo.choose(static_cast<int>(random_() % 2));
        fields().cboMatCre.choose(0);
    }
    void enterRack() {
        enter(fields().Text1(measure::rackModule), among({"2", "2,5", "4"}));
        enter(fields().Text1(measure::rackHeight), among({"20", "35,5", "60"}));
        enter(fields().Text1(measure::rackLength), among({"500", "1000", "62,25"}));
        enter(fields().Text1(measure::rackWidth), among({"20", "40"}));
        leave();
    }
    void enterWheel(const data::ProductType& type) {
        if (type.hubs == data::Hubs::twoUnlike) {
            enter(fields().Text1(measure::secondHubWidth), among({"10", "12,5"}));
            enter(fields().Text1(measure::secondHubDiameter), among({"60", "45"}));
        }
        enterToothing(among({"9,525", "12,7", "15,875", "25,4"}), among({"5,72", "7,75", "25", "31"}),
                      among({"9", "13", "17", "21", "38", "57"}), among({"6,35", "8,51", "10,16"}));
        if (type.hubs == data::Hubs::twoUnlike) {
            enter(fields().Text1(measure::hubWidth), among({"15", "20"}));
        }
        enter(fields().Text1(measure::bore), among({"20", "25,5"}));
        enter(fields().Text1(measure::rim), fields().Text1(measure::rim).text());
        leave();
    }
    void enterAmounts() {
        std::vector<int> order{money::labour, money::subcontracted, money::sundries, money::sawCharge, money::pieces};
        std::ranges::shuffle(order, random_);
        for (const int field : order) {
            enter(fields().txtPesu(field), field == money::pieces ? among({"1", "3", "12"}) : amountUpTo(50));
        }
        leave();
    }

    std::mt19937 random_{20261122};
};

TEST_F(ExplanationsTest, EveryFigureOfARandomProposalIsWhatItsRuleGives) {
    constexpr int rounds = 6;
    for (const data::ProductType& type : data::productTypes) {
        for (int round = 0; round < rounds; ++round) {
            openAnew();
            enterPiece(type);
            enterAmounts();
            const std::vector<Explanation> all = explanations().all();
            EXPECT_GE(all.size(), 12U) << type.name;
            for (const Explanation& each : all) {
                const bool entered = each.field == &fields().txtPesu(money::labour);
                EXPECT_EQ(each.origin, entered ? Origin::typed : Origin::calculated)
                    << type.name << ", round " << round << "\n"
                    << estimate::textOf(each);
            }
        }
    }
}

TEST_F(ExplanationsTest, AValueTypedOverAFigureIsToldBesideTheValueOfTheRule) {
    const std::string other = "77,77";
    std::size_t typedOver = 0;
    for (const data::ProductType& type : data::productTypes) {
        openAnew();
        enterPiece(type);
        enterAmounts();
        for (const Explanation& before : explanations().all()) {
            auto& box = const_cast<screen::TextBox&>(*before.field);
            if (!form().moveFocus(box, screen::Form::Insist::yes)) {
                continue;
            }
            box.setText(other);
            const Explanation after = explained(box);
            const bool stands = box.text() == other;
            EXPECT_EQ(after.origin, stands ? Origin::typed : Origin::calculated) << estimate::textOf(after);
            // The price of a piece has three rules, one of them by the event: the usual one is told beside a typed
            // price.
            if (&box != &fields().txtPesu(money::piece)) {
                EXPECT_EQ(after.result, before.result) << type.name << "\n" << estimate::textOf(after);
            }
            if (stands) {
                EXPECT_THAT(estimate::linesOf(after), Contains(HasSubstr("Escrito a mano: 77,77")));
                ++typedOver;
            }
            box.setText(before.shown);
        }
        form().leaveFocus();
    }
    EXPECT_GT(typedOver, 200U);
}

TEST_F(ExplanationsTest, AnEmptyProposalIsPending) {
    const Explanation pitchDiameter = explained(fields().Text1(measure::pitchDiameter));
    EXPECT_EQ(pitchDiameter.origin, Origin::pending);
    EXPECT_THAT(estimate::linesOf(pitchDiameter), Contains("Todavía no se ha calculado."));
    EXPECT_EQ(explained(fields().Text4(cut::discDiameter)).origin, Origin::pending);
    EXPECT_EQ(explained(fields().txtPesu(money::piece)).origin, Origin::calculated) << "nothing costs nothing";
}

TEST_F(ExplanationsTest, AFigureOfAnEarlierMaterialIsToldBesideThatOfThePresentOne) {
    material(3).factor = 7.85;
    openAnewWithMaterials();
    enterLargeSprocket();
    const std::string before = fields().Text4(cut::discWeight).text();
    fields().cboMatDisco.choose(0);
    const std::string onFirst = fields().Text4(cut::discWeight).text();
    fields().bCargandoDisco = true;
    fields().cboMatDisco.choose(1);
    fields().bCargandoDisco = false;
    const Explanation weight = explained(fields().Text4(cut::discWeight));
    EXPECT_EQ(weight.shown, onFirst);
    EXPECT_EQ(weight.origin, Origin::kept);
    EXPECT_NE(weight.result, weight.shown);
    EXPECT_THAT(estimate::linesOf(weight), Contains(HasSubstr("No se ha vuelto a calcular")));
}

TEST_F(ExplanationsTest, ARateNamesItsSource) {
    enterLargeSprocket();
    EXPECT_THAT(estimate::textOf(explained(fields().txtPesu(money::discCut))),
                HasSubstr("0,05 €/mm (tabla de materiales, 001 - Disco F-114)"));
    EXPECT_THAT(estimate::textOf(explained(fields().txtPesu(money::discPrice))), HasSubstr("(artículo R-F114)"));
    EXPECT_THAT(estimate::textOf(explained(fields().Text1(measure::hubDiameter))),
                HasSubstr("Factor: 0,6 (tabla de constantes de medidas"));
    fields().cboMatDisco.choose(3);
    EXPECT_THAT(estimate::textOf(explained(fields().txtPesu(money::discCut))),
                HasSubstr("0,01 €/mm (el material no tiene tarifa"));
}

TEST_F(ExplanationsTest, TheCostNamesTheLastPurchase) {
    database.answerAllThatBegin("select top 1 cac_fecha,lac_precio", {"cac_fecha", "lac_precio"},
                                {{runtime::CDate("03/02/2026"), 1.07}});
    EXPECT_THAT(explained(fields().txtPesu(money::discCost)).steps, Contains("Última compra: 1,07 el 03/02/2026."));
    database.answerAllThatBegin("select top 1 cac_fecha,lac_precio", {"cac_fecha", "lac_precio"});
    EXPECT_THAT(explained(fields().txtPesu(money::discCost)).steps,
                Contains("No consta ninguna compra de este artículo."));
}

TEST_F(ExplanationsTest, TheRoundingToldIsTheOneThatGaveTheAmount) {
    enterLargeSprocket();
    fields().Text4(cut::discWeight).setText("1,334");
    fields().txtPesu(money::discPrice).setText("1");
    fields().txtPesu(money::discCut).setText("1,001");
    EXPECT_THAT(explained(fields().txtPesu(money::discAmount)).rounding, HasSubstr("otra vez"));
    fields().bCargandoPropuesta = true;
    const double once = estimate::lineRoundedOnce({.weight = 1.334, .price = 1, .cut = 1.001});
    ASSERT_NE(once, estimate::lineRoundedTwice({.weight = 1.334, .price = 1, .cut = 1.001}));
    estimate::put(fields().txtPesu(money::discAmount), once);
    EXPECT_THAT(explained(fields().txtPesu(money::discAmount)).rounding, HasSubstr("una sola vez"));
}

TEST_F(ExplanationsTest, ThePieceTellsWhatBecameOfTheSawCharge) {
    enterLargeSprocket();
    const screen::TextBox& piece = fields().txtPesu(money::piece);
    enter(fields().txtPesu(money::sawCharge), "10");
    EXPECT_THAT(estimate::textOf(explained(piece)), HasSubstr("no está en el precio")) << "there are no pieces yet";
    enter(fields().txtPesu(money::pieces), "4");
    enter(fields().txtPesu(money::sawCharge), "12");
    EXPECT_THAT(explained(piece).steps, Contains(HasSubstr("12,00 € ÷ 4 = 3,00 € por pieza")));
    enter(fields().txtPesu(money::sundries), "1");
    EXPECT_THAT(explained(piece).rule, HasSubstr("Material + Fijo Sierra"));
}

TEST_F(ExplanationsTest, ATableThatDoesNotAnswerIsSaid) {
    enterLargeSprocket();
    fields().Text1(measure::hubDiameter).setText("1");
    database.fail(
        "SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 1 and Calculos_Valor1<=153.79 "
        "and Calculos_Valor2>=153.79 order by Calculos_Valor2 ",
        sql::provider::failure, "La base no contesta");
    setFactor(1, {});
    const Explanation hub = explained(fields().Text1(measure::hubDiameter));
    EXPECT_EQ(hub.obstacle, "La base no contesta");
    EXPECT_THAT(estimate::linesOf(hub), Contains("No se puede calcular: La base no contesta"));
}

TEST_F(ExplanationsTest, OnlyFiguresOfTheTypeOnShowAreCovered) {
    EXPECT_TRUE(explanations().covers(fields().Text1(measure::exterior)));
    EXPECT_FALSE(explanations().covers(fields().Text1(measure::rackPitch)));
    EXPECT_FALSE(explanations().covers(fields().txtPesu(money::pieces)));
    EXPECT_FALSE(explanations().of(fields().txtPesu(money::pieces)));
    chooseType(data::rack);
    EXPECT_TRUE(explanations().covers(fields().Text1(measure::rackPitch)));
    EXPECT_FALSE(explanations().covers(fields().Text1(measure::exterior)));
}

}  // namespace
}  // namespace velmora::support
