#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>
#include <stdexcept>

#include <gtest/gtest.h>

#include "qt_bench.h"

namespace velmora::testing {
namespace {

class ExplainedForm : public screen::Form {
  public:
    ExplainedForm() : Form("frmExplained") {
        weight.setToolTip("Peso de la pieza");
        setLayout(
            screen::layout::column(screen::layout::field("Peso", weight, 8), screen::layout::field("Otro", plain, 8)));
        setTabOrder({&weight, &plain});
    }
    screen::TextBox weight{*this, "weight"};
    screen::TextBox plain{*this, "plain"};
};

class Explanations : public QtBench {
  protected:
    QString toolTipOf(const screen::Control& control) {
        QToolTip::hideText();
        QWidget& widget = widgetOf(control);
        QHelpEvent asked(QEvent::ToolTip, QPoint(2, 2), widget.mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&widget, &asked);
        return QToolTip::text();
    }
    ExplainedForm form;
};

TEST_F(Explanations, TheToolTipOfACalculatedFieldIsItsExplanation) {
    form.weight.explanation = [] { return std::string("7,85 kg/dm³ × 1,2 dm³\n< 10 kg"); };
    play(form, [&] {
        EXPECT_EQ(toolTipOf(form.weight), "7,85 kg/dm³ × 1,2 dm³<br>&lt; 10 kg");
        form.weight.explanation = nullptr;
        EXPECT_EQ(toolTipOf(form.weight), "Peso de la pieza");
    });
}

TEST_F(Explanations, AWarningStandsBeforeTheToolTip) {
    form.weight.setWarning("Sin precio");
    play(form, [&] { EXPECT_EQ(toolTipOf(form.weight), "Sin precio<br>Peso de la pieza"); });
}

TEST_F(Explanations, AnErrorInTheExplanationIsShownAndLeavesTheToolTip) {
    form.weight.explanation = []() -> std::string { throw std::runtime_error("no table"); };
    bool told = false;
    play(form, [&] {
        whenBoxOpens([&](QWidget& box) {
            told = true;
            QTest::keyClick(&box, Qt::Key_Return);
        });
        EXPECT_EQ(toolTipOf(form.weight), "Peso de la pieza");
        EXPECT_TRUE(QTest::qWaitFor([&] { return told; }, 1000));
    });
}

TEST_F(Explanations, TheContextMenuAsksWhyWhereSomebodyAnswers) {
    int asked = 0;
    form.weight.onExplain = [&] { ++asked; };
    play(form, [&] {
        QWidget& widget = widgetOf(form.weight);
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(2, 2), widget.mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&widget, &wanted);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QAction* why = menu->actions().back();
        EXPECT_EQ(why->text(), "¿Por qué este valor?");
        why->trigger();
        menu->close();
        EXPECT_EQ(asked, 1);
    });
}

}  // namespace
}  // namespace velmora::testing
