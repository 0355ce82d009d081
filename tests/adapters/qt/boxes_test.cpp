#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <optional>

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

#include "qt_bench.h"

namespace velmora::testing {
namespace {

using screen::Answer;
using screen::Buttons;
using screen::MessageBox;

class Boxes : public QtBench {
  protected:
    Answer askWithKey(const MessageBox& box, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        whenBoxOpens([=](QWidget& shown) { QTest::keyClick(&shown, key, modifiers); });
        return screen_->show(box);
    }

    screen::SearchWindow customers() const {
        std::vector<sql::Row> rows;
        for (const char* name : {"Talleres Ibáñez", "Ñandú Hermanos", "IBAÑEZ e Hijos", "Nervión"}) {
            rows.push_back({static_cast<int>(rows.size()) + 1, static_cast<int>(rows.size()) + 1000, name});
        }
        return {.title = "Buscar clientes",
                .searchColumn = "cli_nom",
                .firstCaption = "Codigo",
                .secondCaption = "Nombre",
                .firstWidth = 600,
                .secondWidth = 6000,
                .rows = sql::Recordset(sql::rowsInMemory({{"CLI_ID"}, {"CLI_COD"}, {"CLI_NOM"}}, rows))};
    }
};

const MessageBox question{.text = "¿Seguro?", .icon = screen::Icon::question, .buttons = Buttons::yesNoCancel};
const MessageBox yesNo{.text = "¿Seguro?", .icon = screen::Icon::question, .buttons = Buttons::yesNo};

TEST_F(Boxes, EnterPressesTheDefaultButton) {
    EXPECT_EQ(askWithKey(question, Qt::Key_Return), Answer::yes);
    MessageBox second = question;
    second.defaultButton = 2;
    EXPECT_EQ(askWithKey(second, Qt::Key_Return), Answer::no);
    EXPECT_EQ(askWithKey({.text = "Hecho"}, Qt::Key_Return), Answer::ok);
}

TEST_F(Boxes, EscTakesTheMildestAnswer) {
    EXPECT_EQ(askWithKey(question, Qt::Key_Escape), Answer::cancel);
    EXPECT_EQ(askWithKey(yesNo, Qt::Key_Escape), Answer::no);
    EXPECT_EQ(askWithKey({.text = "Hecho"}, Qt::Key_Escape), Answer::ok);
}

TEST_F(Boxes, LettersAnswerWithAltAndWithout) {
    EXPECT_EQ(askWithKey(question, Qt::Key_S), Answer::yes);
    EXPECT_EQ(askWithKey(question, Qt::Key_N), Answer::no);
    EXPECT_EQ(askWithKey(question, Qt::Key_C), Answer::cancel);
    EXPECT_EQ(askWithKey(question, Qt::Key_N, Qt::AltModifier), Answer::no);
}

TEST_F(Boxes, ButtonsAndIconsAreAsAsked) {
    whenBoxOpens([](QWidget& shown) {
        auto& box = dynamic_cast<QMessageBox&>(shown);
        QStringList captions;
        for (const QPushButton* button : box.findChildren<QPushButton*>()) {
            captions.append(button->text());
        }
        captions.sort();
        EXPECT_EQ(captions, (QStringList{"&Cancelar", "&No", "&Sí"}));
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.text(), "¿Seguro?");
        QTest::keyClick(&shown, Qt::Key_Escape);
    });
    screen_->show(question);
}

TEST_F(Boxes, SearchFiltersAsTheUserTypesByWordsWithoutAccents) {
    whenBoxOpens([](QWidget& window) {
        window.findChild<QLineEdit*>()->insert("hijos ibanez");
        QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    EXPECT_EQ(screen_->search(customers()), std::optional<std::size_t>(2));
    whenBoxOpens([](QWidget& window) {
        window.findChild<QLineEdit*>()->insert("ibañez");
        QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    EXPECT_EQ(screen_->search(customers()), std::optional<std::size_t>(0)) << "Talleres Ibáñez";
}

TEST_F(Boxes, AnErrorsDetailsAreCopiedWhileTheBoxStaysOpen) {
    whenBoxOpens([](QWidget& shown) {
        auto& box = dynamic_cast<QMessageBox&>(shown);
        EXPECT_EQ(box.text(), QStringLiteral("No queda sitio en el disco."));
        EXPECT_EQ(box.informativeText(), QStringLiteral("Error 61"));
        ASSERT_EQ(box.buttons().size(), 2);
        for (QAbstractButton* button : box.buttons()) {
            if (button->text() == QStringLiteral("&Copiar detalles")) {
                button->click();
            }
        }
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    screen_->showError(std::make_exception_ptr(runtime::RuntimeError(61, "No queda sitio en el disco.")));
    EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(),
                ::testing::HasSubstr("Error 61\nOrigen: VELMORA\nVELMORA "));
}

TEST_F(Boxes, AnErrorWithAFileOffersItsFolderWhenThatIsThere) {
    const auto buttonsFor = [&](const std::string& words) {
        qsizetype count = 0;
        whenBoxOpens([&](QWidget& shown) {
            count = dynamic_cast<QMessageBox&>(shown).buttons().size();
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
        screen_->showError(std::make_exception_ptr(runtime::RuntimeError(75, words)));
        return count;
    };
    EXPECT_EQ(buttonsFor("No se puede escribir el fichero\n/tmp/p.pdf"), 3);
    EXPECT_EQ(buttonsFor("No se puede escribir el fichero\n/no such folder/p.pdf"), 2);
}

TEST_F(Boxes, ArrowKeysMoveInTheListWhileTheBoxKeepsTheKeyboard) {
    whenBoxOpens([](QWidget& window) {
        auto* box = window.findChild<QLineEdit*>();
        QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Up);
        QTest::keyClick(box, Qt::Key_Return);
    });
    EXPECT_EQ(screen_->search(customers()), std::optional<std::size_t>(1));
}

TEST_F(Boxes, EscLeavesTheSearchWithoutAChoice) {
    whenBoxOpens([](QWidget& window) { QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Escape); });
    EXPECT_EQ(screen_->search(customers()), std::nullopt);
}

TEST_F(Boxes, AFilterThatNothingHoldsChoosesNothing) {
    whenBoxOpens([](QWidget& window) {
        auto* box = window.findChild<QLineEdit*>();
        QTest::keyClicks(box, "zzz");
        QTest::keyClick(box, Qt::Key_Return);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_EQ(screen_->search(customers()), std::nullopt);
}

}  // namespace
}  // namespace velmora::testing
