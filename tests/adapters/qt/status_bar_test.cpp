#include "velmora/adapters/qt/status_bar.h"

#include <QComboBox>
#include <QLineEdit>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/field_edit.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

#include "qt_bench.h"
#include "told_form.h"

namespace velmora::testing {
namespace {

class StatusBars : public QtBench {
  protected:
    QString part(const char* name) const {
        const auto* label = screen_->top()->findChild<QLabel*>(name);
        const auto* whole = dynamic_cast<const qt::StatusPart*>(label);
        return whole != nullptr ? whole->wholeText() : label->text();
    }
    /// The border's colour in the middle of the upper edge.
    QColor borderOf(const screen::Control& control) const {
        QWidget& widget = widgetOf(control);
        return widget.grab().toImage().pixelColor(widget.width() / 2, 0);
    }
    QString painted(const screen::Control& control) const {
        return dynamic_cast<qt::FieldEdit&>(widgetOf(control)).paintedText();
    }
    ToldForm form;
};

TEST_F(StatusBars, TheStateTheHintTheNoteAndTheLastActionAreShown) {
    play(form, [&] {
        EXPECT_EQ(part("state"), "Nueva");
        EXPECT_EQ(part("message"), "Paso de la cadena, en mm");
        key(Qt::Key_Tab);
        EXPECT_EQ(part("message"), "Precio");
        key(Qt::Key_F6);
        EXPECT_EQ(part("message"), "No se puede duplicar");
        key(Qt::Key_F5);
        EXPECT_EQ(part("message"), "Precio");
        EXPECT_EQ(part("state"), "Pendiente");
        EXPECT_EQ(part("deed"), "Propuesta 321 grabada a las 10:32");
    });
}

TEST_F(StatusBars, WhatIsUnderWayIsShownWithoutEventsInBetween) {
    play(form, [&] {
        screen_->tellWork("Esperando a otro usuario…");
        EXPECT_EQ(part("message"), "Esperando a otro usuario…");
        screen_->tellWork("");
        EXPECT_EQ(part("message"), "Paso de la cadena, en mm");
    });
}

TEST_F(StatusBars, AFieldWithAWarningHasAnAmberBorder) {
    play(form, [&] {
        form.price.setWarning("Sin precio");
        EXPECT_EQ(borderOf(form.price), QColor(qt::theme::warningBorder));
        key(Qt::Key_Tab);
        EXPECT_EQ(part("message"), "Sin precio");
        form.price.setWarning("");
        EXPECT_EQ(borderOf(form.price), QColor(qt::theme::focusBorder));
        EXPECT_EQ(part("message"), "Precio");
    });
}

TEST_F(StatusBars, ANumberIsPaintedWithItsDecimalsAndKeepsItsText) {
    form.price.setText("12,7");
    play(form, [&] {
        EXPECT_EQ(painted(form.price), "12,70");
        EXPECT_EQ(dynamic_cast<QLineEdit&>(widgetOf(form.price)).text(), "12,7");
        const QImage without = widgetOf(form.price).grab().toImage();
        form.price.setText("12,70");
        EXPECT_EQ(widgetOf(form.price).grab().toImage(), without) << "as if it had been told so";
    });
}

TEST_F(StatusBars, ANumberWithoutRoomIsPaintedAsSigns) {
    form.price.setText("123.456.789.012,75");
    play(form, [&] {
        EXPECT_TRUE(painted(form.price).startsWith("###")) << qt::fromQt(painted(form.price));
        form.price.setText("Precio de un nombre largo");
        EXPECT_EQ(painted(form.price), "Precio de un nombre largo") << "is no number";
    });
}

}  // namespace
}  // namespace velmora::testing
