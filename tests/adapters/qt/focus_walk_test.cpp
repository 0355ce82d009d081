#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "velmora/data/product_types.h"
#include "velmora/platform/screen/places.h"

#include "qt_bench.h"
#include "support/proposal_workshop.h"

namespace velmora::testing {
namespace {

using screen::Control;
using screen::TextBox;

/// The measures of a piece that leaving its fields accepts.
void putPiece(support::ProposalWorkshop& workshop, int type) {
    auto& f = workshop.fields();
    f.cboTipoPre.setListIndex(type);
    f.cboDobles.setListIndex(1);
    for (const auto& [field, text] : std::initializer_list<std::pair<int, const char*>>{
             {0, "12,7"}, {1, "17"}, {8, "7,75"}, {2, "8,51"}, {19, "4"}, {22, "40"}, {24, "1000"}, {25, "40"}}) {
        f.Text1(field).setText(text);
    }
    f.txtPesu(0).setText("1001");
    f.txtPesu(1).setText("TALLERES NORTE SL");
}

class FocusWalk : public QtBench, public ::testing::WithParamInterface<int> {
  protected:
    /// The controls at which the key stops, from the customer's code until it comes round. Each is on the screen.
    std::vector<std::string> walk(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        const screen::Form& form = workshop.form();
        workshop.form().moveFocus(workshop.fields().txtPesu(0));
        std::vector<std::string> stops;
        do {
            const Control* stop = form.activeControl();
            if (stop == nullptr || stops.size() > 150) {
                ADD_FAILURE() << "the walk does not come round";
                break;
            }
            stops.push_back(stop->fullName());
            EXPECT_TRUE(screen::isSeen(*stop)) << stop->fullName();
            const QWidget& widget = widgetOf(*stop);
            EXPECT_TRUE(widget.hasFocus()) << stop->fullName();
            EXPECT_TRUE(widget.isVisible()) << stop->fullName();
            EXPECT_EQ(widget.visibleRegion().boundingRect().height(), widget.height())
                << stop->fullName() << " is scrolled out of the window";
            this->key(key, modifiers);
        } while (form.activeControl() != &workshop.fields().txtPesu(0));
        return stops;
    }

    support::ProposalWorkshop workshop;
};

TEST_P(FocusWalk, EnterAndTabStopOnlyAtWhatIsOnTheScreen) {
    putPiece(workshop, GetParam());
    play(workshop.form(), [&] {
        // Smaller than the form, so that it has to be scrolled.
        screen_->top()->resize(900, 420);
        const std::vector<std::string> forward = walk(Qt::Key_Return, Qt::NoModifier);
        const std::vector<std::string> backward = walk(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(std::set(forward.begin(), forward.end()), std::set(backward.begin(), backward.end()));
        EXPECT_GT(forward.size(), 10U);
    });
}

INSTANTIATE_TEST_SUITE_P(AllTypes, FocusWalk, ::testing::Range(0, static_cast<int>(data::productTypes.size())));

/// A person who enters a piece with Enter from stop to stop, and saves it.
class StopsAndPrices : public ::testing::TestWithParam<std::tuple<int, const char*>> {
  protected:
    /// The stored row, its columns one below the other.
    static std::string rowAfterWalk(int type, const char* teeth, bool everyField) {
        support::ProposalWorkshop workshop;
        auto& f = workshop.fields();
        workshop.choose("cboTipoPre", type);
        if (f.product().chainList) {
            workshop.choose("cboDobles", 1);
        }
        if (everyField) {
            for (Control* control : workshop.form().tabOrder()) {
                control->setTabStop(true);
            }
            // The rim stood between height and hub width.
            std::vector<Control*> order = workshop.form().tabOrder();
            std::erase(order, &f.Text1(9));
            order.insert(std::ranges::find(order, &f.Text1(10)), &f.Text1(9));
            workshop.form().setTabOrder(order);
            // Left with the mask of an amount; the rack's amount passes the focus over the pieces.
            for (const int passedOver : {3, 4, 6, 13, 17, 57}) {
                f.txtPesu(passedOver).setTabStop(false);
            }
        }
        std::map<std::string, const char*> entries{
            {"Text1(0)", "12,7"},   {"Text1(1)", teeth},    {"Text1(8)", "7,75"},   {"Text1(2)", "8,51"},
            {"Text1(7)", "25"},     {"Text1(12)", "8"},     {"Text1(13)", "2"},     {"Text1(14)", "20"},
            {"Text1(18)", "50"},    {"Text1(19)", "4"},     {"Text1(22)", "40"},    {"Text1(24)", "1000"},
            {"Text1(25)", "40"},    {"txtPesu(8)", "12,5"}, {"txtPesu(9)", "7,35"}, {"txtPesu(5)", "3"},
            {"txtPesu(14)", "4,2"}, {"txtPesu(11)", "3"},   {"txtPesu(0)", "1001"}};
        workshop.form().moveFocus(f.txtPesu(0), screen::Form::Insist::yes);
        if (f.product().shape == data::ProductShape::rack) {
            entries.erase("Text1(12)");
            entries.erase("Text1(13)");
        }
        int steps = 0;
        do {
            const auto entry = entries.find(workshop.focused());
            if (entry != entries.end()) {
                dynamic_cast<TextBox&>(workshop.control(entry->first)).setText(entry->second);
                entries.erase(entry);
            }
            workshop.key(screen::Key::enter);
        } while (workshop.focused() != "txtPesu(0)" && ++steps < 150);
        EXPECT_LT(steps, 150);
        workshop.key(screen::Key::f5);
        EXPECT_TRUE(workshop.errors.empty());
        const sql::Recordset row = workshop.database->execute("select * from DPI");
        std::string told;
        for (std::size_t i = 0; i < row.columns().size(); ++i) {
            told += row.columns()[i].name + " = " + (row[i].isNull() ? "NULL" : row[i].toText()) + "\n";
        }
        return told;
    }
};

TEST_P(StopsAndPrices, PassingOverTheCalculatedFieldsStoresTheSameRow) {
    const auto [type, teeth] = GetParam();
    const std::string shortWalk = rowAfterWalk(type, teeth, false);
    EXPECT_EQ(shortWalk, rowAfterWalk(type, teeth, true));
    EXPECT_NE(shortWalk, "");
}

INSTANTIATE_TEST_SUITE_P(AllTypes, StopsAndPrices,
                         ::testing::Combine(::testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 10, 11, 12, 13, 14),
                                            ::testing::Values("17", "38")));

}  // namespace
}  // namespace velmora::testing
