// Texts that come into a field otherwise than by typing.

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

#include <gmock/gmock.h>

#include "velmora/platform/session/kestra_util.h"

#include "qt_bench.h"
#include "support/scripted_connection.h"

namespace velmora::testing {
namespace {

using ::testing::ElementsAre;

class NumberForm : public screen::Form {
  public:
    explicit NumberForm(session::KestraUtil& helper) : Form("frmNumbers") {
        pitch.onGotFocus = [this, &helper] { helper.EntrarCampo(pitch); };
        pitch.onKeyPress = [this, &helper](screen::KeyPress& key) { helper.TeclaCampo(pitch, key, false); };
        teeth.onKeyPress = [this, &helper](screen::KeyPress& key) { helper.TeclaCampo(teeth, key, true); };
        pitch.onChange = [this] { changes.push_back(pitch.text()); };
        setLayout(screen::layout::column(screen::layout::field("Paso", pitch, 8).number(),
                                         screen::layout::field("Z", teeth, 8).number(),
                                         screen::layout::field("Nombre", name, 20)));
        setTabOrder({&pitch, &teeth, &name});
    }
    screen::TextBox pitch{*this, "pitch"};
    screen::TextBox teeth{*this, "teeth"};
    screen::TextBox name{*this, "name"};
    std::vector<std::string> changes;
};

class Insertions : public QtBench {
  protected:
    static void copied(const QString& text) { QApplication::clipboard()->setText(text); }
    void paste() const { key(Qt::Key_V, Qt::ControlModifier); }
    QLineEdit& editOf(const screen::Control& control) const { return dynamic_cast<QLineEdit&>(widgetOf(control)); }

    support::ScriptedConnection connection_;
    session::KestraUtil helper_{*screen_, connection_};
    NumberForm form{helper_};
};

TEST_F(Insertions, APastedNumberIsFilteredAndChangesTheFieldOnce) {
    form.pitch.setText("0,00");
    form.changes.clear();
    play(form, [&] {
        copied("1.234,5 mm");
        paste();
        EXPECT_THAT(form.changes, ElementsAre("1234,5"));
        EXPECT_EQ(editOf(form.pitch).text(), "1234,5");
    });
}

TEST_F(Insertions, WhatIsNoNumberLeavesTheFieldAndTheStatusLineTellsUntilTheNextKey) {
    form.pitch.setText("12,7");
    form.changes.clear();
    play(form, [&] {
        copied("doce coma siete");
        paste();
        EXPECT_THAT(form.changes, ElementsAre());
        EXPECT_EQ(editOf(form.pitch).text(), "12,7");
        EXPECT_EQ(form.status().note(), "«doce coma siete» no es un número: no se ha insertado");
        key(Qt::Key_5);
        EXPECT_EQ(form.status().note(), "");
    });
}

TEST_F(Insertions, TheContextMenuPastesThroughTheSameFilter) {
    play(form, [&] {
        copied("12.7");
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(2, 2),
                                 editOf(form.pitch).mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&editOf(form.pitch), &wanted);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text() == "&Pegar") {
                action->trigger();
            }
        }
        menu->close();
        EXPECT_EQ(form.pitch.text(), "12,7");
    });
}

TEST_F(Insertions, ADroppedTextPassesTheSameFilter) {
    play(form, [&] {
        QMimeData data;
        data.setText("38 dientes");
        QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&editOf(form.teeth), &enter);
        QDropEvent drop(QPointF(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&editOf(form.teeth), &drop);
        EXPECT_EQ(form.teeth.text(), "38");
        data.setText("12,5");
        QApplication::sendEvent(&editOf(form.teeth), &enter);
        QDropEvent fraction(QPointF(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&editOf(form.teeth), &fraction);
        EXPECT_EQ(form.teeth.text(), "38");
        EXPECT_EQ(form.status().note(), "«12,5» no es un número entero: no se ha insertado");
    });
}

TEST_F(Insertions, AComposedTextOfSeveralCharactersPassesTheSameFilter) {
    play(form, [&] {
        QInputMethodEvent composed;
        composed.setCommitString("1.234,5 mm");
        QApplication::sendEvent(&editOf(form.pitch), &composed);
        EXPECT_EQ(form.pitch.text(), "1234,5");
    });
}

TEST_F(Insertions, ATextSetFromOutsidePassesTheSameFilter) {
    play(form, [&] {
        editOf(form.pitch).setText("3.5 mm");
        EXPECT_EQ(form.pitch.text(), "3,5");
        editOf(form.pitch).setText("tres");
        EXPECT_EQ(form.pitch.text(), "3,5");
        EXPECT_EQ(editOf(form.pitch).text(), "3,5");
    });
}

TEST_F(Insertions, DeletingInAGroupedNumberIsNoInsertion) {
    form.pitch.setText("1.234,50");
    play(form, [&] {
        key(Qt::Key_Home);
        key(Qt::Key_Right);
        key(Qt::Key_Right);
        key(Qt::Key_Delete);
        EXPECT_EQ(form.pitch.text(), "1.34,50");
    });
}

TEST_F(Insertions, AFieldOfTextsTakesWhatIsPasted) {
    play(form, [&] {
        form.name.setFocus();
        copied("Talleres 1.234,5 mm");
        paste();
        EXPECT_EQ(form.name.text(), "Talleres 1.234,5 mm");
    });
}

TEST_F(Insertions, ALockedFieldTakesNothing) {
    form.pitch.setLocked(true);
    play(form, [&] {
        copied("5");
        paste();
        EXPECT_EQ(form.pitch.text(), "");
    });
}

}  // namespace
}  // namespace velmora::testing
