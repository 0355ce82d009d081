#include <QMenu>
#include <QPushButton>

#include <gmock/gmock.h>

#include "qt_bench.h"

namespace velmora::testing {
namespace {

using ::testing::ElementsAre;

class ToolbarForm : public screen::Form {
  public:
    ToolbarForm() : Form("frmToolbar") {
        bar.setItems({{"Nuevo documento", {{"FICHERO", "Fichero existente"}, {"ESCANER", "Escaner"}}},
                      {"", {}},
                      {"Visualizar documento", {}}});
        bar.onButtonClick = [this](int number) { log.push_back("button " + std::to_string(number)); };
        bar.onMenuClick = [this](const std::string& key) { log.push_back("menu " + key); };
        box.onLostFocus = [this] { log.push_back("lost box"); };
        setLayout(screen::layout::column(screen::layout::plain(bar), screen::layout::field("Texto", box)));
        setTabOrder({&box});
    }
    screen::Toolbar bar{*this, "Toolbar1"};
    screen::TextBox box{*this, "box"};
    std::vector<std::string> log;
};

class Toolbars : public QtBench {
  protected:
    QPushButton& button(const QString& caption) const {
        for (QPushButton* candidate : widgetOf(form.bar).findChildren<QPushButton*>()) {
            if (candidate->text().remove(QLatin1Char('&')) == caption) {
                return *candidate;
            }
        }
        throw std::logic_error("no such button");
    }
    ToolbarForm form;
};

TEST_F(Toolbars, SeparatorsCountAndTheFocusMovesFirst) {
    play(form, [&] {
        QTest::mouseClick(&button("Visualizar documento"), Qt::LeftButton);
        EXPECT_THAT(form.log, ElementsAre("lost box", "button 3"));
    });
}

TEST_F(Toolbars, ABarOfMenusAloneLooksLikeTheMenuOfAWindow) {
    play(form, [&] {
        EXPECT_FALSE(button("Visualizar documento").isFlat());
        const int height = button("Nuevo documento").sizeHint().height();
        form.bar.setItems({{"Archivo", {{"SALIR", "Salir"}}}, {"Datos", {{"CLIENTES", "Clientes"}}}});
        EXPECT_TRUE(button("Archivo").isFlat());
        EXPECT_TRUE(button("Datos").isFlat());
        EXPECT_LT(button("Archivo").sizeHint().height(), height);
        EXPECT_LT(button("Archivo").sizeHint().width(),
                  button("Archivo").fontMetrics().horizontalAdvance("Archivo") + 30)
            << "without an arrow";
    });
}

TEST_F(Toolbars, EachButtonHasAMnemonicOfItsOwn) {
    form.bar.setItems({{"Visualizar", {}}, {"", {}}, {"Vista", {}}, {"&Otra", {}}});
    play(form, [&] {
        EXPECT_EQ(button("Visualizar").text(), "&Visualizar");
        EXPECT_EQ(button("Vista").text(), "V&ista");
        EXPECT_EQ(button("Otra").text(), "&Otra");
        key(Qt::Key_I, Qt::AltModifier);
        // The button is shown pressed before it clicks.
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.log.size() == 2; }, 1000));
        EXPECT_THAT(form.log, ElementsAre("lost box", "button 3"));
    });
}

TEST_F(Toolbars, AMenuTellsTheKeyOfItsItemAndTheButtonNothing) {
    play(form, [&] {
        QMenu* menu = button("Nuevo documento").menu();
        ASSERT_NE(menu, nullptr);
        ASSERT_EQ(menu->actions().size(), 2);
        menu->actions().at(1)->trigger();
        EXPECT_THAT(form.log, ElementsAre("lost box", "menu ESCANER"));
    });
}

}  // namespace
}  // namespace velmora::testing
