#include "velmora/estimate/weights.h"

#include <memory>
#include <vector>

#include "velmora/platform/runtime/numbers.h"

#include "fields_alone.h"

namespace velmora::support {
namespace {

using estimate::Operand;
using estimate::Weights;

class WeightsTest : public FieldsAlone {
  protected:
    double weigh(const sql::Value& formula, const Operand& a, const Operand& b, const Operand& c, const Operand& d,
                 const Operand& e, double pieces = 1, const sql::Value& factor = 2.0) {
        return Weights(fields()).FnPeso(formula, pieces, a, b, c, d, e, factor);
    }
    /// A field that holds this text.
    const screen::TextBox& box(const char* text) {
        scrap_.push_back(std::make_unique<screen::TextBox>(scrapForm_, "scrap"));
        scrap_.back()->setText(text);
        return *scrap_.back();
    }

  private:
    screen::Form scrapForm_{"scrap"};
    std::vector<std::unique_ptr<screen::TextBox>> scrap_;
};

TEST_F(WeightsTest, EachFormulaWeighsInItsWay) {
    struct Row {
        int formula;
        double expected;
    };
    // a = 100, b = 200, c = 10, d = 300, e = 100, three pieces, factor 2
    for (const Row& row :
         {Row{0, 3}, Row{1, 1.2}, Row{5, 1.2}, Row{2, 54}, Row{3, 54}, Row{6, 54}, Row{4, 48}, Row{7, 0}, Row{-1, 0}}) {
        EXPECT_EQ(weigh(row.formula, 100.0, 200.0, 10.0, 300.0, 100.0, 3), row.expected) << row.formula;
    }
}

TEST_F(WeightsTest, AnArticleWithoutFormulaWeighsNothing) {
    EXPECT_EQ(weigh(sql::Value{}, 100.0, 1.0, 1.0, 300.0, 0.0), 0);
}

TEST_F(WeightsTest, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(weigh(1, 1005000.0, 1.0, 1.0, 0.0, 0.0, 1, 1.0), 1.01);
    EXPECT_EQ(weigh(1, 1004900.0, 1.0, 1.0, 0.0, 0.0, 1, 1.0), 1);
}

TEST_F(WeightsTest, WithFormulasOffEveryArticleIsASolidRound) {
    fields().chkFormulas.setChecked(false);
    for (const int formula : {0, 1, 2, 4, 9}) {
        EXPECT_EQ(weigh(formula, 100.0, 200.0, 10.0, 300.0, 100.0), 18) << formula;
    }
    EXPECT_EQ(weigh(sql::Value{}, 100.0, 200.0, 10.0, 300.0, 100.0), 18);
}

TEST_F(WeightsTest, ARackIsAPlateWhateverArticleAndSwitchSay) {
    chooseType(13);
    EXPECT_EQ(weigh(4, 100.0, 200.0, 10.0, 300.0, 100.0), 0.4);
    fields().chkFormulas.setChecked(false);
    EXPECT_EQ(weigh(4, 100.0, 200.0, 10.0, 300.0, 100.0), 0.4);
}

TEST_F(WeightsTest, MeasuresAreReadByTheLocale) {
    EXPECT_EQ(weigh(2, box("100"), 1.0, 1.0, box("30,5"), box("")), 0.19);
}

TEST_F(WeightsTest, DiametersOfATubeAreReadUpToTheComma) {
    struct Row {
        const char* length;
        double kept;      ///< (60 + 40) x (60 - 40) x length
        double byLocale;  ///< (60,5 + 40,9) x (60,5 - 40,9) x length
    };
    for (const Row& row : {Row{"100,5", 0.4, 0.4}, Row{"1000", 4, 3.97}}) {
        EXPECT_EQ(weigh(4, box(row.length), 1.0, 1.0, box("60,5"), box("40,9")), row.kept)
            << row.length << ", read by the locale " << row.byLocale;
    }
    EXPECT_EQ(weigh(4, 100.0, 1.0, 1.0, 60.5, 40.9), 0.4) << "a number is read in its text form";
}

TEST_F(WeightsTest, ATextThatIsNoNumberWeighsNothing) {
    EXPECT_EQ(weigh(2, box("x"), 1.0, 1.0, box("300"), box("0")), 0);
    EXPECT_EQ(weigh(1, box(""), 1.0, 1.0, box("300"), box("0")), 0);
    EXPECT_EQ(weigh(4, box("100"), 1.0, 1.0, box("x"), box("")), 0) << "Val of no number is 0";
}

TEST_F(WeightsTest, OnlyWhatTheFormulaNeedsIsRead) {
    EXPECT_EQ(weigh(1, box("1000000"), 1.0, 1.0, box("x"), box("")), 2);
    EXPECT_EQ(weigh(0, box("x"), 1.0, 1.0, box("x"), box("x"), 1, sql::Value{}), 1);
}

TEST_F(WeightsTest, AnArticleWithoutFactorWeighsNothing) {
    EXPECT_EQ(weigh(2, 100.0, 1.0, 1.0, 300.0, 0.0, 1, sql::Value{}), 0);
}

}  // namespace
}  // namespace velmora::support
