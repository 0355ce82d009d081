#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <stdexcept>

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

#include "qt_bench.h"
#include "sample_form.h"

namespace velmora::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class FocusAndKeys : public QtBench {
  protected:
    QString shown(const screen::Control& control) const { return dynamic_cast<QLineEdit&>(widgetOf(control)).text(); }
    SampleForm form;
};

TEST_F(FocusAndKeys, ActivatingGivesTheFirstTabStopTheFocus) {
    play(form, [&] {
        EXPECT_EQ(form.activeControl(), &form.id(0));
        EXPECT_TRUE(widgetOf(form.id(0)).hasFocus());
    });
}

TEST_F(FocusAndKeys, TabAndBacktabFollowTheModelsOrderNotTheWindows) {
    form.setTabOrder({&form.total(7), &form.id(1), &form.measure(2)});
    play(form, [&] {
        EXPECT_EQ(form.activeControl(), &form.total(7));
        key(Qt::Key_Tab);
        EXPECT_EQ(form.activeControl(), &form.id(1));
        key(Qt::Key_Tab);
        key(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(form.activeControl(), &form.id(1));
        EXPECT_TRUE(widgetOf(form.id(1)).hasFocus());
    });
}

TEST_F(FocusAndKeys, AClickTellsLostFocusBeforeGotFocus) {
    play(form, [&] {
        form.log.clear();
        click(form.measure(1));
        EXPECT_THAT(form.log, ElementsAre("lost id(0)", "got measure(1)"));
    });
}

TEST_F(FocusAndKeys, SetFocusInsideLostFocusWinsOverTheClick) {
    play(form, [&] {
        form.id(0).onLostFocus = [&] { form.id(2).setFocus(); };
        click(form.measure(1));
        EXPECT_EQ(form.activeControl(), &form.id(2));
        EXPECT_TRUE(widgetOf(form.id(2)).hasFocus());
    });
}

TEST_F(FocusAndKeys, ADisabledControlRefusesTheClick) {
    form.measure(1).setEnabled(false);
    play(form, [&] {
        click(form.measure(1));
        EXPECT_EQ(form.activeControl(), &form.id(0));
    });
}

TEST_F(FocusAndKeys, AControlDisabledWithTheFocusGivesItOn) {
    play(form, [&] {
        form.id(0).onChange = [&] { form.id(0).setEnabled(false); };
        type("7");
        EXPECT_EQ(form.activeControl(), &form.id(1));
        EXPECT_TRUE(widgetOf(form.id(1)).hasFocus());
    });
}

TEST_F(FocusAndKeys, TheEndOfAnActionIsToldBehindItsBoxesAndErrors) {
    std::vector<std::string> log;
    form.id(0).onChange = [&] {
        log.emplace_back("begins");
        screen_->show({.text = "Aviso"});
        log.emplace_back("fails");
        runtime::raise(runtime::typeMismatch);
    };
    play(form, [&] {
        screen_->onActionEnded([&] { log.emplace_back("ended"); });
        for (const char* box : {"box", "error"}) {
            whenBoxOpens([&log, box](QWidget& shown) {
                log.emplace_back(box);
                QTest::keyClick(&shown, Qt::Key_Return);
            });
        }
        type("7");
        EXPECT_THAT(log, ElementsAre("begins", "box", "fails", "error", "ended"));
        screen_->onActionEnded({});
    });
}

TEST_F(FocusAndKeys, TypingReplacesASelectedTextKeyByKeyThroughTheModel) {
    std::vector<std::string> texts;
    form.id(0).onChange = [&] { texts.push_back(form.id(0).text()); };
    play(form, [&] {
        type("98");
        EXPECT_THAT(texts, ElementsAre("9", "98"));
        key(Qt::Key_Backspace);
        EXPECT_EQ(form.id(0).text(), "9");
        key(Qt::Key_Delete);
        key(Qt::Key_Home);
        key(Qt::Key_Delete);
        EXPECT_EQ(form.id(0).text(), "");
    });
}

TEST_F(FocusAndKeys, AClickThatBringsTheFocusLeavesTheWholeTextSelected) {
    play(form, [&] {
        click(form.measure(1));
        type("5");
        EXPECT_EQ(form.measure(1).text(), "5");
    });
}

TEST_F(FocusAndKeys, KeyPressSwallowsAndChangesCharacters) {
    form.id(0).onKeyPress = [](screen::KeyPress& press) {
        if (press.character == U'.') {
            press.character = U',';
        } else if (press.character == U'x') {
            press.character = 0;
        }
    };
    play(form, [&] {
        type("1x.5");
        EXPECT_EQ(form.id(0).text(), "1,5");
        EXPECT_EQ(shown(form.id(0)), "1,5");
    });
}

TEST_F(FocusAndKeys, ALockedFieldKeepsItsText) {
    form.id(0).setLocked(true);
    play(form, [&] {
        type("9");
        key(Qt::Key_Backspace);
        EXPECT_EQ(form.id(0).text(), "1045");
    });
}

TEST_F(FocusAndKeys, AChangeHandlerThatRewritesTheTextIsShown) {
    form.id(0).onChange = [&] { form.id(0).setText("fixed"); };
    play(form, [&] {
        type("9");
        EXPECT_EQ(shown(form.id(0)), "fixed");
    });
}

TEST_F(FocusAndKeys, EnterGoesOnAsTheFormSaysAndIsSwallowed) {
    play(form, [&] {
        key(Qt::Key_Return);
        EXPECT_EQ(form.activeControl(), &form.id(1));
        key(Qt::Key_Enter);
        EXPECT_EQ(form.activeControl(), &form.id(2));
    });
}

TEST_F(FocusAndKeys, AKeyTurnedIntoTabMovesOn) {
    form.onKeyDown = [](screen::KeyDown& event) {
        if (event.key == screen::Key::enter) {
            event.key = screen::Key::tab;
        }
    };
    play(form, [&] {
        key(Qt::Key_Return);
        EXPECT_EQ(form.activeControl(), &form.id(1));
    });
}

TEST_F(FocusAndKeys, TheDecimalPointOfThePadBecomesTheComma) {
    play(form, [&] {
        click(form.measure(0));
        type("3");
        key(Qt::Key_Period, Qt::KeypadModifier);
        type("2");
        EXPECT_EQ(form.measure(0).text(), "3,2");
    });
}

TEST_F(FocusAndKeys, FunctionKeysReachTheFormFromAnyField) {
    std::vector<screen::Key> seen;
    form.onKeyDown = [&](screen::KeyDown& event) { seen.push_back(event.key); };
    play(form, [&] {
        key(Qt::Key_F5);
        click(form.history);
        key(Qt::Key_F8);
        EXPECT_THAT(seen, ElementsAre(screen::Key::f5, screen::Key::f8));
    });
}

TEST_F(FocusAndKeys, TheTabKeyIsNotShownToTheForm) {
    int keys = 0;
    form.onKeyDown = [&](screen::KeyDown&) { ++keys; };
    play(form, [&] {
        key(Qt::Key_Tab);
        EXPECT_EQ(form.activeControl(), &form.id(1));
        EXPECT_EQ(keys, 0);
    });
}

TEST_F(FocusAndKeys, EscThatUnloadsEndsTheModalShow) {
    bool unloaded = false;
    form.onUnload = [&] { unloaded = true; };
    play(form, [&] {
        key(Qt::Key_Escape);
        EXPECT_TRUE(form.isUnloaded());
    });
    EXPECT_TRUE(unloaded);
    EXPECT_EQ(screen_->top(), nullptr);
}

TEST_F(FocusAndKeys, ClosingTheWindowUnloadsTheForm) {
    play(form, [&] {
        screen_->top()->close();
        EXPECT_TRUE(form.isUnloaded());
    });
}

TEST_F(FocusAndKeys, ADisabledFormTakesNoInput) {
    play(form, [&] {
        form.setEnabled(false);
        type("9");
        key(Qt::Key_Tab);
        click(form.measure(1));
        click(form.save);
        screen_->top()->close();
        EXPECT_EQ(form.id(0).text(), "1045");
        EXPECT_EQ(form.activeControl(), &form.id(0));
        EXPECT_THAT(form.log, ElementsAre("got id(0)"));
        EXPECT_FALSE(form.isUnloaded());
        form.setEnabled(true);
        type("9");
        EXPECT_EQ(form.id(0).text(), "9");
    });
}

TEST_F(FocusAndKeys, ADoubleClickIsToldAfterTheFocusHasArrived) {
    form.measure(1).onDblClick = [&] { form.log.push_back("double click"); };
    form.remarks.onDblClick = [&] { form.log.push_back("double click"); };
    play(form, [&] {
        form.log.clear();
        doubleClick(form.measure(1));
        EXPECT_THAT(form.log, ElementsAre("lost id(0)", "got measure(1)", "double click"));
        doubleClick(form.measure(1));
        doubleClick(form.remarks);
        EXPECT_THAT(form.log, ElementsAre("lost id(0)", "got measure(1)", "double click", "double click",
                                          "lost measure(1)", "got remarks", "double click"));
    });
}

TEST_F(FocusAndKeys, NothingElseThatIsDoneInAFieldIsADoubleClick) {
    int told = 0;
    form.id(0).onDblClick = [&] { ++told; };
    form.onKeyDown = [](screen::KeyDown&) {};
    play(form, [&] {
        type("9");
        key(Qt::Key_Return);
        key(Qt::Key_Tab);
        click(form.id(0));
        QTest::mouseDClick(&widgetOf(form.id(0)), Qt::RightButton);
        click(form.measure(1));
        key(Qt::Key_Tab);
        EXPECT_EQ(told, 0);
    });
}

TEST_F(FocusAndKeys, ALockedOrDisabledFieldIsNotClickedAt) {
    int told = 0;
    for (const int i : {1, 2}) {
        form.id(i).onDblClick = [&] { ++told; };
    }
    form.id(1).setLocked(true);
    form.id(2).setEnabled(false);
    play(form, [&] {
        doubleClick(form.id(1));
        doubleClick(form.id(2));
        form.setEnabled(false);
        doubleClick(form.id(0));
        EXPECT_EQ(told, 0);
    });
}

TEST_F(FocusAndKeys, AButtonTakesTheFocusBeforeItsClick) {
    play(form, [&] {
        form.log.clear();
        click(form.save);
        EXPECT_THAT(form.log, ElementsAre("lost id(0)", "click save"));
    });
}

TEST_F(FocusAndKeys, AButtonAnswersToItsMnemonic) {
    play(form, [&] {
        key(Qt::Key_G, Qt::AltModifier);
        // The button is shown pressed before it clicks.
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.log.back() == "click save"; }, 1000));
    });
}

TEST_F(FocusAndKeys, ChoosingTheSameEntryAgainRaisesClick) {
    int clicks = 0;
    form.type.onClick = [&] { ++clicks; };
    play(form, [&] {
        click(form.id(1));
        form.moveFocus(form.type);
        key(Qt::Key_Down);
        EXPECT_EQ(form.type.listIndex(), 1);
        key(Qt::Key_Up);
        EXPECT_EQ(form.type.listIndex(), 0);
        EXPECT_EQ(clicks, 2);
    });
}

/// The two events of the list of types, in order.
class ListEvents : public FocusAndKeys {
  protected:
    ListEvents() {
        form.type.onClick = [this] { told.push_back("click"); };
        form.type.onChosen = [this] { told.push_back("chosen"); };
    }
    std::vector<std::string> told;
};

TEST_F(ListEvents, AListThatIsOpenedAndLeftTellsNothing) {
    play(form, [&] {
        form.moveFocus(form.type);
        openList(form.type);
        inList(form.type, Qt::Key_Down);
        inList(form.type, Qt::Key_Escape);
        openList(form.type);
        QApplication::activePopupWidget()->close();
        click(form.id(1));
        // Runs the pending events of the list.
        QTest::qWait(20);
        EXPECT_THAT(told, ::testing::IsEmpty());
        EXPECT_EQ(form.type.listIndex(), 0);
        EXPECT_FALSE(form.isUnloaded());
    });
}

TEST_F(ListEvents, AnEntryThatIsChosenTellsBothInOrder) {
    play(form, [&] {
        form.moveFocus(form.type);
        openList(form.type);
        inList(form.type, Qt::Key_Down);
        inList(form.type, Qt::Key_Return);
        EXPECT_EQ(form.type.listIndex(), 1);
        EXPECT_THAT(told, ElementsAre("click", "chosen"));
        openList(form.type);
        inList(form.type, Qt::Key_Return);
        EXPECT_EQ(form.type.listIndex(), 1);
        EXPECT_THAT(told, ElementsAre("click", "chosen", "click", "chosen")) << "the same entry again";
        QTest::keyClick(&widgetOf(form.type), Qt::Key_Up);
        EXPECT_EQ(form.type.listIndex(), 0);
        EXPECT_EQ(told.size(), 6u) << "without opening the list";
        told.clear();
        form.type.setListIndex(2);
        EXPECT_THAT(told, ElementsAre("click")) << "by the program";
    });
}

TEST_F(FocusAndKeys, ACheckBoxIsTickedByMouseAndSpace) {
    play(form, [&] {
        QTest::mouseClick(&widgetOf(form.coupling), Qt::LeftButton, {},
                          QPoint(8, widgetOf(form.coupling).height() / 2));
        EXPECT_TRUE(form.coupling.checked());
        key(Qt::Key_Space);
        EXPECT_FALSE(form.coupling.checked());
    });
}

TEST_F(FocusAndKeys, ARunTimeErrorIsShownAndTheProgramGoesOn) {
    form.save.onClick = [] { runtime::raise(runtime::typeMismatch); };
    QString text;
    play(form, [&] {
        whenBoxOpens([&](QWidget& box) {
            text = dynamic_cast<QMessageBox&>(box).text();
            EXPECT_EQ(dynamic_cast<QMessageBox&>(box).informativeText(), QStringLiteral("Error 13"));
            EXPECT_EQ(dynamic_cast<QMessageBox&>(box).icon(), QMessageBox::Critical);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        click(form.save);
        click(form.id(1));
        type("9");
        EXPECT_EQ(form.id(1).text(), "9");
    });
    EXPECT_THAT(text.toStdString(), HasSubstr(runtime::errorDescription(13)));
}

TEST_F(FocusAndKeys, AnyOtherExceptionIsShownLikewise) {
    form.id(0).onLostFocus = [] { throw std::out_of_range("beyond the list"); };
    QString text;
    play(form, [&] {
        whenBoxOpens([&](QWidget& box) {
            text = dynamic_cast<QMessageBox&>(box).text();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        key(Qt::Key_Tab);
        EXPECT_EQ(form.activeControl(), &form.id(1));
        EXPECT_TRUE(QTest::qWaitFor([&] { return widgetOf(form.id(1)).hasFocus(); }, 1000));
    });
    EXPECT_THAT(text.toStdString(), HasSubstr("beyond the list"));
}

TEST_F(FocusAndKeys, ModalShowsNest) {
    SampleForm child;
    form.save.onClick = [&] {
        screen_->showModal(child);
        form.log.push_back("child closed");
    };
    play(form, [&] {
        QTimer::singleShot(20, [&] {
            EXPECT_EQ(&screen_->top()->form(), &child);
            child.unload();
        });
        click(form.save);
        EXPECT_THAT(form.log, ::testing::Contains("child closed"));
        EXPECT_EQ(&screen_->top()->form(), &form);
    });
}

}  // namespace
}  // namespace velmora::testing
