#include <QApplication>
#include <sstream>

#include <gmock/gmock.h>

#include "velmora/adapters/script/journal.h"
#include "velmora/adapters/script/user.h"

#include "qt_bench.h"
#include "support/proposal_workshop.h"

namespace velmora::testing {
namespace {

using screen::ComboBox;
using screen::TextBox;

/// The same actions in a window and by a script, on two main forms with equal databases: both must give the same
/// prices.
class WindowAndDriver : public QtBench {
  protected:
    WindowAndDriver() {
        for (support::ProposalWorkshop* workshop : {&atWindow, &inScript}) {
            workshop->enterToothing();
            workshop->enterCustomerAndUnits();
        }
        inScript.form().activate();
    }

    void enter(std::string_view field, const char* text) {
        click(atWindow.control(field));
        type(QString::fromUtf8(text));
        key(Qt::Key_Tab);
        EXPECT_TRUE(user.type(inScript.control(field), text));
        user.stroke(inScript.form(), {.key = screen::Key::tab});
        expectAlike(field);
    }
    void clickTwice(std::string_view field) {
        doubleClick(atWindow.control(field));
        EXPECT_TRUE(user.doubleClick(dynamic_cast<TextBox&>(inScript.control(field))));
        expectAlike(field);
    }
    /// Moves to a list, opens it, moves in it and leaves it without choosing. A script cannot open a list, so it only
    /// moves to it and on.
    void lookInto(std::string_view name) {
        const auto& list = dynamic_cast<const ComboBox&>(atWindow.control(name));
        bring(list);
        openList(list);
        inList(list, Qt::Key_Down);
        inList(list, Qt::Key_Escape);
        QTest::keyClick(&widgetOf(list), Qt::Key_Tab);
        QTest::qWait(20);
        EXPECT_TRUE(user.focus(inScript.control(name)));
        user.stroke(inScript.form(), {.key = screen::Key::tab});
        expectAlike(name);
    }
    void choose(std::string_view name, int index) {
        const auto& list = dynamic_cast<const ComboBox&>(atWindow.control(name));
        bring(list);
        openList(list);
        const int steps = index - list.listIndex();
        for (int i = 0; i < steps; ++i) {
            inList(list, Qt::Key_Down);
        }
        inList(list, Qt::Key_Return);
        QTest::keyClick(&widgetOf(list), Qt::Key_Tab);
        QTest::qWait(20);
        EXPECT_EQ(list.listIndex(), index);
        EXPECT_TRUE(user.choose(dynamic_cast<ComboBox&>(inScript.control(name)), index));
        user.stroke(inScript.form(), {.key = screen::Key::tab});
        expectAlike(name);
    }
    std::string text(std::string_view field) { return atWindow.text(field); }

    support::ProposalWorkshop atWindow;
    support::ProposalWorkshop inScript;

  private:
    void bring(const screen::Control& control) { atWindow.form().moveFocus(*atWindow.form().find(control.fullName())); }
    void expectAlike(std::string_view after) {
        EXPECT_EQ(atWindow.texts(), inScript.texts()) << "after " << after;
        EXPECT_EQ(atWindow.focused(), inScript.focused()) << "after " << after;
        EXPECT_EQ(told.str(), "") << "after " << after;
    }

    std::ostringstream told;
    script::Journal journal{told};
    script::User user{journal};
};

TEST_F(WindowAndDriver, TypedPricesAndWeightsStayUntilAMaterialIsChosen) {
    play(atWindow.form(), [&] {
        enter("txtPesu(21)", "9,99");
        enter("txtPesu(24)", "2,5");
        enter("Text4(5)", "7,5");
        const std::string amount = text("txtPesu(25)");
        const std::string total = text("txtPesu(12)");
        lookInto("cboMatDisco");
        lookInto("cboMatCubo");
        EXPECT_EQ(text("txtPesu(21)"), "9,99");
        EXPECT_EQ(text("txtPesu(24)"), "2,50");
        EXPECT_EQ(text("Text4(5)"), "7,50");
        EXPECT_EQ(text("txtPesu(25)"), amount);
        EXPECT_EQ(text("txtPesu(12)"), total);
        choose("cboMatDisco", 0);
        EXPECT_EQ(text("txtPesu(21)"), "1,4") << "the entry that was chosen already, chosen again";
        choose("cboMatCubo", 1);
        EXPECT_NE(text("txtPesu(24)"), "2,50");
    });
}

TEST_F(WindowAndDriver, ADoubleClickOnACutSizeWeighsAnew) {
    play(atWindow.form(), [&] {
        const std::string weight = text("Text4(5)");
        enter("Text4(5)", "7,5");
        clickTwice("Text4(2)");
        EXPECT_EQ(text("Text4(5)"), "7,50") << "the hub's sizes count as the disc's";
        clickTwice("Text4(5)");
        EXPECT_EQ(text("Text4(5)"), weight);
    });
}

}  // namespace
}  // namespace velmora::testing
