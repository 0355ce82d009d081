#include "velmora/platform/screen/control.h"

#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/platform/screen/form.h"

namespace velmora::screen {
namespace {

using ::testing::ElementsAre;

/// Records the notifications it receives.
class Ear : public FormObserver {
  public:
    explicit Ear(Form& form) : form_(form) { form_.addObserver(*this); }
    ~Ear() override { form_.removeObserver(*this); }
    void controlChanged(Control& control, Property property) override {
        heard.push_back(control.fullName());
        properties.push_back(property);
    }
    void formChanged() override { ++formChanges; }
    void focusMoved(Control* control) override { focus.push_back(control ? control->fullName() : "-"); }

    std::vector<std::string> heard;
    std::vector<Property> properties;
    std::vector<std::string> focus;
    int formChanges = 0;

  private:
    Form& form_;
};

long numberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const runtime::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(ControlTest, EachTellsWhatItHolds) {
    Form form("f");
    EXPECT_EQ(TextBox(form, "c").holds(), Holds::text);
    EXPECT_EQ(ComboBox(form, "c").holds(), Holds::entries);
    EXPECT_EQ(CheckBox(form, "c").holds(), Holds::tick);
    EXPECT_EQ(Label(form, "c").holds(), Holds::caption);
    EXPECT_EQ(Frame(form, "c").holds(), Holds::caption);
    EXPECT_EQ(Button(form, "c").holds(), Holds::caption);
    EXPECT_EQ(Toolbar(form, "c").holds(), Holds::nothing);
}

TEST(TextBoxTest, WritingADifferentTextRaisesChangeOnce) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    int changes = 0;
    box.onChange = [&] { ++changes; };
    box.setText("1");
    EXPECT_EQ(changes, 1);
    box.setText("2");
    EXPECT_EQ(changes, 2);
}

TEST(TextBoxTest, WritingTheSameTextRaisesNothing) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    box.setText("1");
    int changes = 0;
    box.onChange = [&] { ++changes; };
    Ear ear(form);
    box.setText("1");
    EXPECT_EQ(changes, 0);
    EXPECT_THAT(ear.heard, ElementsAre());
}

TEST(TextBoxTest, AHandlerSeesTheNewTextBeforeTheWriterGoesOn) {
    Form form("f");
    TextBox first(form, "Text1", 0);
    TextBox second(form, "Text1", 1);
    first.onChange = [&] { second.setText(first.text() + "+"); };
    first.setText("a");
    EXPECT_EQ(second.text(), "a+");
}

TEST(TextBoxTest, ChangesThatChaseEachOtherEndWhereTheTextStandsStill) {
    Form form("f");
    TextBox first(form, "Text1", 0);
    TextBox second(form, "Text1", 1);
    int changes = 0;
    first.onChange = [&] {
        ++changes;
        second.setText("x");
    };
    second.onChange = [&] {
        ++changes;
        first.setText("x");
    };
    first.setText("y");
    EXPECT_EQ(first.text(), "x");
    EXPECT_EQ(changes, 3);
}

TEST(TextBoxTest, AnErrorOfAHandlerReachesTheWriterAndTheTextStands) {
    Form form("f");
    TextBox box(form, "Text1", 0);
    box.onChange = [] { runtime::raise(runtime::typeMismatch); };
    EXPECT_EQ(numberOf([&] { box.setText("x"); }), 13);
    EXPECT_EQ(box.text(), "x");
}

TEST(TextBoxTest, ItsNumberIsThatOfItsPresentText) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    EXPECT_FALSE(box.holdsNumber()) << "empty";
    EXPECT_EQ(numberOf([&] { box.number(); }), 13);
    box.setText("1.234,5");
    EXPECT_TRUE(box.holdsNumber());
    EXPECT_EQ(box.number(), 1234.5);
    EXPECT_EQ(box.number(), 1234.5);
    box.setText("1e999");
    EXPECT_FALSE(box.holdsNumber());
    EXPECT_EQ(numberOf([&] { box.number(); }), 6);
    box.setText("7");
    EXPECT_EQ(box.number(), 7);
    box.setNumber(8.5);
    EXPECT_EQ(box.number(), 8.5);
}

TEST(TextBoxTest, AHandlerReadsTheNumberOfTheNewText) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    std::vector<double> read;
    box.onChange = [&] { read.push_back(box.number()); };
    box.setText("1");
    box.setNumber(2);
    EXPECT_THAT(read, ElementsAre(1, 2));
}

TEST(TextBoxTest, ANumberIsWrittenInItsDefaultText) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    box.setNumber(1.0 / 3);
    EXPECT_EQ(box.text(), "0,333333333333333");
    EXPECT_EQ(box.number(), 0.333333333333333) << "the text's, not the one written";
    EXPECT_EQ(numberOf([&] { box.setNumber(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(box.text(), "0,333333333333333");
}

TEST(TextBoxTest, ANumberWhoseTextStandsIsNotWrittenAgain) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    int changes = 0;
    box.onChange = [&] { ++changes; };
    box.setNumber(0.1 + 0.2);
    EXPECT_EQ(changes, 1);
    box.setNumber(0.3);
    box.setNumber(0.1 + 0.2);
    box.setText("0,3");
    EXPECT_EQ(changes, 1) << "all have the text that stands";
}

TEST(TextBoxTest, ANumberIsWrittenAnewOverAnotherText) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    box.setNumber(12);
    box.setText("12,00");
    int changes = 0;
    box.onChange = [&] { ++changes; };
    box.setNumber(12);
    EXPECT_EQ(box.text(), "12");
    EXPECT_EQ(changes, 1);
}

TEST(TextBoxTest, ANumberIsWrittenAnewAfterAHandlerHasReplacedIt) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    box.onChange = [&] { box.setText("0"); };
    box.setNumber(12);
    EXPECT_EQ(box.text(), "0");
    box.onChange = [] {};
    box.setNumber(12);
    EXPECT_EQ(box.text(), "12");
}

TEST(TextBoxTest, TheSelectionGoesWithTheNextChange) {
    Form form("f");
    TextBox box(form, "Text1", 0);
    box.setText("12");
    box.selectAll();
    EXPECT_TRUE(box.allSelected());
    box.setText("3");
    EXPECT_FALSE(box.allSelected());
}

TEST(TextBoxTest, ALockedOrDisabledFieldIsStillWrittenByCode) {
    Form form("f");
    TextBox box(form, "Text1", 0);
    box.setLocked(true);
    box.setEnabled(false);
    box.setText("9");
    EXPECT_EQ(box.text(), "9");
}

class ListTest : public ::testing::Test {
  protected:
    ListTest() {
        for (const char* entry : {"uno", "dos", "tres"}) {
            list.addItem(entry);
        }
        list.onClick = [this] { clicks.push_back(list.listIndex()); };
    }
    Form form{"f"};
    ComboBox list{form, "cboTipoPre"};
    std::vector<int> clicks;
};

TEST_F(ListTest, SettingTheIndexClicksEveryTimeAlsoOnTheSame) {
    list.setListIndex(1);
    list.setListIndex(1);
    list.setListIndex(0);
    EXPECT_THAT(clicks, ElementsAre(1, 1, 0));
}

TEST_F(ListTest, AChoiceOfTheUserIsToldBehindItsClick) {
    std::vector<std::string> told;
    list.onClick = [&] { told.push_back("click"); };
    list.onChosen = [&] { told.push_back("chosen"); };
    list.choose(1);
    list.choose(1);
    EXPECT_THAT(told, ElementsAre("click", "chosen", "click", "chosen"));
    list.setListIndex(2);
    list.setText("uno");
    EXPECT_THAT(told, ElementsAre("click", "chosen", "click", "chosen", "click")) << "what code does is no choice";
    EXPECT_EQ(numberOf([&] { list.choose(3); }), 380);
    EXPECT_EQ(told.size(), 5u);
}

TEST_F(ListTest, ChoosingNothingClicksToo) {
    list.setListIndex(2);
    list.setListIndex(-1);
    EXPECT_THAT(clicks, ElementsAre(2, -1));
    EXPECT_EQ(list.text(), "");
}

TEST_F(ListTest, AnIndexOutsideTheListIsRefusedAndChangesNothing) {
    list.setListIndex(1);
    EXPECT_EQ(numberOf([&] { list.setListIndex(3); }), 380);
    EXPECT_EQ(numberOf([&] { list.setListIndex(-2); }), 380);
    EXPECT_EQ(list.listIndex(), 1);
    EXPECT_THAT(clicks, ElementsAre(1));
}

TEST_F(ListTest, ClearingForgetsTheChoiceWithoutAClick) {
    list.setListIndex(1);
    clicks.clear();
    list.clear();
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.text(), "");
    EXPECT_EQ(list.listCount(), 0);
    EXPECT_THAT(clicks, ElementsAre());
}

TEST_F(ListTest, WritingATextChoosesItsEntryWithoutAClick) {
    list.setText("tres");
    EXPECT_EQ(list.listIndex(), 2);
    EXPECT_THAT(clicks, ElementsAre());
}

TEST_F(ListTest, APlainListRefusesATextThatIsNotInIt) {
    list.setListIndex(1);
    EXPECT_EQ(numberOf([&] { list.setText("cuatro"); }), 383);
    EXPECT_EQ(list.text(), "dos");
}

TEST_F(ListTest, AnEditableListKeepsATextThatIsNotInIt) {
    list.setStyle(ComboBox::Style::editable);
    list.setText("cuatro");
    EXPECT_EQ(list.text(), "cuatro");
    EXPECT_EQ(list.listIndex(), -1);
}

TEST_F(ListTest, AnEntryThatIsReplacedTakesTheShownTextWithIt) {
    list.setListIndex(1);
    list.setList(1, "DOS");
    EXPECT_EQ(list.text(), "DOS");
    EXPECT_EQ(numberOf([&] { list.setList(3, "x"); }), 5);
    EXPECT_EQ(list.list(7), "");
}

TEST(CheckBoxTest, OnlyAChangeClicks) {
    Form form("f");
    CheckBox box(form, "chkAcopla");
    int clicks = 0;
    box.onClick = [&] { ++clicks; };
    box.setChecked(false);
    EXPECT_EQ(clicks, 0);
    box.setChecked(true);
    box.setChecked(true);
    EXPECT_EQ(clicks, 1);
}

TEST(EventTest, AHandlerThatReplacesItselfGoesOnUndisturbed) {
    Event<> event;
    std::string said;
    event = [&] {
        const std::string mine = "first";
        event = [&] { said += "second"; };
        said += mine;
    };
    event();
    event();
    EXPECT_EQ(said, "firstsecond");
}

TEST(EventTest, WithoutAHandlerNothingHappens) {
    const Event<int> event;
    EXPECT_FALSE(event);
    EXPECT_NO_THROW(event(3));
}

TEST(ControlTest, AFrameHidesAndDisablesAllThatStandsInIt) {
    Form form("f");
    Frame outer(form, "fraCubo");
    Frame inner(form, "fraDentro");
    TextBox box(form, "Text4", 2);
    inner.setFrame(&outer);
    box.setFrame(&inner);
    EXPECT_TRUE(box.canTakeFocus());
    outer.setVisible(false);
    EXPECT_FALSE(box.isVisible());
    EXPECT_TRUE(box.visible()) << "its own property is untouched";
    outer.setVisible(true);
    outer.setEnabled(false);
    EXPECT_FALSE(box.isEnabled());
    EXPECT_TRUE(box.enabled());
    EXPECT_FALSE(box.canTakeFocus());
}

TEST(ControlTest, AFieldInAFrameIsDisabledWithTheForm) {
    Form form("f");
    Frame frame(form, "fraCubo");
    TextBox box(form, "Text4", 2);
    box.setFrame(&frame);
    form.setEnabled(false);
    EXPECT_FALSE(box.isEnabled());
}

TEST(ControlTest, LabelsAndFramesTakeNoFocus) {
    Form form("f");
    Label label(form, "Label1", 4);
    Frame frame(form, "Frame1");
    EXPECT_FALSE(label.canTakeFocus());
    EXPECT_FALSE(frame.canTakeFocus());
    EXPECT_EQ(numberOf([&] { label.setFocus(); }), 5);
}

TEST(ControlTest, ObserversHearOfEveryChangedPropertyAndOfNoOther) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    Ear ear(form);
    box.setEnabled(true);
    box.setEnabled(false);
    box.setVisible(false);
    box.setBackColor(colors::yellow);
    box.setToolTip("t");
    EXPECT_THAT(ear.properties,
                ElementsAre(Property::enabled, Property::visible, Property::backColor, Property::toolTip));
    EXPECT_THAT(ear.heard, ::testing::Each("Text1(3)"));
}

TEST(ControlTest, AnObserverIsToldBeforeTheHandlerRuns) {
    Form form("f");
    TextBox box(form, "Text1", 3);
    Ear ear(form);
    std::size_t heardBefore = 0;
    box.onChange = [&] { heardBefore = ear.heard.size(); };
    box.setText("x");
    EXPECT_EQ(heardBefore, 1u);
}

TEST(BusyTest, TheFormComesBackWhateverEndsTheWork) {
    Form form("f");
    try {
        const Disabled disabled(form);
        EXPECT_FALSE(form.enabled());
        runtime::raise(runtime::overflow);
    } catch (const runtime::RuntimeError&) {
    }
    EXPECT_TRUE(form.enabled());
}

}  // namespace
}  // namespace velmora::screen
