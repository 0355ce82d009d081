#include "velmora/estimate/new_proposal.h"

#include "velmora/data/product_types.h"
#include "velmora/platform/runtime/numbers.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

/// On show as it begins: disc 1 (0,95 and 1,4), hub 2 (1,02 and 1,5), rack 8 (1 and 2).
class NewProposalTest : public WiredFields {
  protected:
    screen::TextBox& box(int i) { return fields().txtPesu(i); }
    const std::string& amount(int i) { return fields().txtPesu(i).text(); }
    std::vector<std::string> prices() {
        return {amount(20), amount(21), amount(23), amount(24), amount(54), amount(56)};
    }
};

const std::string none = "0,00";

TEST_F(NewProposalTest, PricingAnEmptyProposalSumsNothing) {
    const auto sums = [this] {
        std::vector<std::string> texts;
        for (const int i : {5, 7, 8, 9, 10, 11, 12, 14, 15, 16, 22, 25, 55, 57}) {
            texts.push_back(amount(i));
        }
        return texts;
    };
    EXPECT_EQ(amount(22), none);
    EXPECT_EQ(amount(25), none);
    const std::vector<std::string> plain = sums();
    chooseType(13);
    EXPECT_EQ(sums(), plain);
}

TEST_F(NewProposalTest, EachTypeIsPricedForThePartsThatItHas) {
    for (int type = 0; data::findProductType(type); ++type) {
        openAnew();
        chooseType(type);
        const bool rack = type == data::rack;
        const bool hub = data::productType(type).hasHub();
        EXPECT_EQ(prices(), (std::vector<std::string>{rack ? none : "0,95", rack ? none : "1,4", hub ? "1,02" : none,
                                                      hub ? "1,5" : none, rack ? "1" : none, rack ? "2" : none}))
            << type;
    }
}

TEST_F(NewProposalTest, ChoosingAnotherTypeAndBackBringsThePricesBack) {
    const std::vector<std::string> plain = prices();
    chooseType(13);
    chooseType(1);
    chooseType(0);
    EXPECT_EQ(prices(), plain);
}

TEST_F(NewProposalTest, APriceTypedByHandIsNotWrittenOver) {
    struct Row {
        const char* typed;
        const char* kept;
    };
    for (const Row& row : {Row{"9,99", "9,99"}, Row{"0", "0,00"}}) {
        openAnew();
        enter(box(21), row.typed);
        leave();
        for (const int type : {4, 13, 6, 0}) {
            chooseType(type);
            EXPECT_EQ(amount(21), row.kept) << type;
        }
        chooseType(13);
        enter(box(56), row.typed);
        leave();
        chooseType(1);
        chooseType(13);
        EXPECT_EQ(amount(56), row.kept);
    }
}

TEST_F(NewProposalTest, APartThatWeighsSomethingKeepsItsPrice) {
    enterLargeSprocket();
    chooseType(6);
    EXPECT_EQ(amount(24), "1,5");
    EXPECT_EQ(amount(25), "7,93");
}

TEST_F(NewProposalTest, ADiscIsQuotedAtThePriceOfTheMaterialOnShow) {
    chooseType(1);
    enterLargeSprocket();
    const double weight = runtime::CDbl(fields().Text4(4).text());
    EXPECT_GT(weight, 0);
    EXPECT_EQ(runtime::CDbl(amount(22)), estimate::round2(weight * 1.4));
    EXPECT_EQ(runtime::CDbl(amount(7)), runtime::CDbl(amount(22)));
}

TEST_F(NewProposalTest, AStoredProposalIsNotPriced) {
    fields().bCargandoPropuesta = true;
    box(3).setText("1");
    box(21).setText(none);
    fields().bCargandoPropuesta = false;
    chooseType(4);
    EXPECT_EQ(amount(21), none);
}

TEST_F(NewProposalTest, NothingIsPricedWhileAProposalIsLoaded) {
    fields().bCargandoPropuesta = true;
    chooseType(13);
    EXPECT_EQ(amount(56), none);
}

TEST_F(NewProposalTest, AListWithNothingToShowHasNoPrice) {
    material(8).rack = false;
    openAnewWithMaterials();
    chooseType(13);
    EXPECT_EQ(amount(56), none);
}

}  // namespace
}  // namespace velmora::support
