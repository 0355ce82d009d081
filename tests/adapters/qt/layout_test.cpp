#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include <gmock/gmock.h>

#include "velmora/adapters/qt/theme.h"

#include "qt_bench.h"
#include "sample_form.h"

namespace velmora::testing {
namespace {

class Layouts : public QtBench {
  protected:
    QRect place(const screen::Control& control) const {
        const QWidget& widget = screen_->top()->viewOf(control)->widget();
        return {widget.mapTo(screen_->top(), QPoint(0, 0)), widget.size()};
    }
    static void settle() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    QColor background(const screen::Control& control) const {
        return widgetOf(control).palette().color(QPalette::Base);
    }
    SampleForm form;
};

TEST_F(Layouts, FramesThatTakeTurnsShareOnePlaceAndNothingJumps) {
    play(form, [&] {
        settle();
        const QRect first = place(form.fraMeasures);
        const QRect sketch = place(form.sketch);
        form.fraMeasures.setVisible(false);
        form.fraOther.setVisible(true);
        settle();
        EXPECT_FALSE(screen_->top()->viewOf(form.fraMeasures)->widget().isVisible());
        EXPECT_TRUE(screen_->top()->viewOf(form.fraOther)->widget().isVisible());
        EXPECT_EQ(place(form.fraOther), first);
        EXPECT_EQ(place(form.sketch), sketch);
        form.fraOther.setVisible(false);
        settle();
        EXPECT_EQ(place(form.sketch), sketch);
    });
}

TEST_F(Layouts, TheFirstVisibleFrameIsShownWhenSeveralAre) {
    play(form, [&] {
        form.fraOther.setVisible(true);
        EXPECT_TRUE(screen_->top()->viewOf(form.fraMeasures)->widget().isVisible());
        EXPECT_FALSE(screen_->top()->viewOf(form.fraOther)->widget().isVisible());
    });
}

TEST_F(Layouts, AHiddenFrameGivesItsRoomBack) {
    play(form, [&] {
        settle();
        const int before = place(form.coupling).top();
        form.fraHub.setVisible(false);
        settle();
        EXPECT_LT(place(form.coupling).top(), before - 50);
        EXPECT_FALSE(widgetOf(form.hub(0)).isVisible());
    });
}

TEST_F(Layouts, AHiddenFieldKeepsItsRoomAndTakesItsCaptionAlong) {
    play(form, [&] {
        settle();
        const QRect below = place(form.measure(10));
        form.measure(8).setVisible(false);
        settle();
        EXPECT_EQ(place(form.measure(10)), below);
        int captions = 0;
        for (const QLabel* label : screen_->top()->findChildren<QLabel*>()) {
            captions += label->text() == "A.C." && label->isVisible() ? 1 : 0;
        }
        EXPECT_EQ(captions, 0);
    });
}

TEST_F(Layouts, ADisabledFrameDisablesWhatStandsInIt) {
    play(form, [&] {
        form.fraHub.setEnabled(false);
        EXPECT_FALSE(widgetOf(form.hub(0)).isEnabled());
        form.fraHub.setEnabled(true);
        EXPECT_TRUE(widgetOf(form.hub(0)).isEnabled());
    });
}

TEST_F(Layouts, EveryFieldHasAnAccessibleName) {
    play(form, [&] {
        for (const screen::Control* control : form.controls()) {
            const qt::ControlView* view = screen_->top()->viewOf(*control);
            const bool named = dynamic_cast<const screen::TextBox*>(control) != nullptr ||
                               dynamic_cast<const screen::ComboBox*>(control) != nullptr ||
                               dynamic_cast<const screen::DataGrid*>(control) != nullptr;
            if (view != nullptr && named) {
                EXPECT_FALSE(widgetOf(*control).accessibleName().isEmpty()) << control->fullName();
            }
        }
        EXPECT_EQ(widgetOf(form.measure(9)).accessibleName(), "Llanta");
    });
}

TEST_F(Layouts, ACaptionThatChangesRenamesItsField) {
    play(form, [&] {
        form.rimCaption.setCaption("Llanta (B2)");
        EXPECT_EQ(widgetOf(form.measure(9)).accessibleName(), "Llanta (B2)");
    });
}

TEST_F(Layouts, BackgroundsTellEnteredCalculatedAndFocus) {
    play(form, [&] {
        EXPECT_EQ(background(form.id(1)), QColor(qt::theme::entered));
        EXPECT_EQ(background(form.measure(3)), QColor(qt::theme::calculated));
        EXPECT_EQ(background(form.id(3)), QColor(qt::theme::calculated));
        EXPECT_EQ(background(form.id(0)), QColor(Qt::yellow));
        form.id(1).setBackColor(screen::colors::red);
        EXPECT_EQ(background(form.id(1)), QColor(Qt::red));
        form.id(1).setBackColor(screen::colors::white);
        EXPECT_EQ(background(form.id(1)), QColor(qt::theme::entered));
        EXPECT_EQ(widgetOf(form.id(3)).palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::black));
    });
}

TEST_F(Layouts, TheTotalIsTheLargestFigure) {
    play(form, [&] {
        EXPECT_GT(widgetOf(form.total(9)).font().pointSizeF(), widgetOf(form.total(6)).font().pointSizeF() * 1.4);
    });
}

TEST_F(Layouts, NoCaptionIsCut) {
    play(form, [&] {
        settle();
        for (const QLabel* label : screen_->top()->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
            }
        }
    });
}

TEST_F(Layouts, AListFilledEntryByEntryIsShownInTheEnd) {
    play(form, [&] {
        form.discMaterial.clear();
        form.discMaterial.addItem("010 - Latón");
        form.discMaterial.addItem("011 - Nailon");
        form.discMaterial.setListIndex(1);
        settle();
        auto& list = dynamic_cast<QComboBox&>(widgetOf(form.discMaterial));
        EXPECT_EQ(list.count(), 2);
        EXPECT_EQ(list.currentText(), "011 - Nailon");
    });
}

/// Two fields that share a place and a caption, like a gear's module and the chain's width.
class SharedCaptionForm : public screen::Form {
  public:
    SharedCaptionForm() : Form("SharedCaptionForm") {
        caption.setCaption("AC");
        module.setVisible(false);
        setLayout(screen::layout::column(screen::layout::takeTurns(screen::layout::field(caption, width, 8),
                                                                   screen::layout::field(caption, module, 8))));
    }
    screen::Label caption{*this, "caption"};
    screen::TextBox width{*this, "width"};
    screen::TextBox module{*this, "module"};
};

TEST_F(Layouts, ACaptionOfFieldsThatTakeTurnsChangesBesideEach) {
    SharedCaptionForm shared;
    play(shared, [&] {
        const auto captions = [&] {
            settle();
            std::vector<std::string> shown;
            for (const QLabel* label : screen_->top()->findChildren<QLabel*>()) {
                const bool ofStatus = label->parent()->objectName() == "status";
                if (label->isVisible() && !ofStatus) {
                    shown.push_back(label->text().toStdString());
                }
            }
            return shown;
        };
        EXPECT_THAT(captions(), ::testing::ElementsAre("AC"));
        shared.caption.setCaption("Modulo");
        shared.width.setVisible(false);
        shared.module.setVisible(true);
        EXPECT_THAT(captions(), ::testing::ElementsAre("Modulo"));
        EXPECT_EQ(widgetOf(shared.module).accessibleName(), "Modulo");
        shared.module.setVisible(false);
        shared.width.setVisible(true);
        EXPECT_THAT(captions(), ::testing::ElementsAre("Modulo"));
    });
}

}  // namespace
}  // namespace velmora::testing
