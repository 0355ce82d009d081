#include <optional>

#include <gmock/gmock.h>

#include "velmora/adapters/win32/native_window.h"
#include "velmora/adapters/win32/search_dialog.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/runtime/errors.h"

#include "win32_hand.h"

namespace velmora::testing {
namespace {

using screen::Answer;
using screen::Buttons;
using screen::MessageBox;
using ::testing::ElementsAre;

class Boxes : public ::testing::Test, protected Win32Hand {
  protected:
    Answer askWithKey(const MessageBox& box, WORD key, std::optional<WORD> modifier = {}) {
        whenBoxOpens([=, this](HWND) { press(key, modifier); });
        return screen().show(box);
    }

    screen::SearchWindow customers(std::size_t more = 0) const {
        std::vector<sql::Row> rows;
        for (const char* name : {"Talleres Ibáñez", "Ñandú Hermanos", "IBAÑEZ e Hijos", "Nervión"}) {
            rows.push_back({static_cast<int>(rows.size()) + 1, static_cast<int>(rows.size()) + 1000, name});
        }
        for (std::size_t i = 0; i < more; ++i) {
            rows.push_back({static_cast<int>(rows.size()) + 1, static_cast<int>(rows.size()) + 1000, "Taller"});
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
    EXPECT_EQ(askWithKey(question, VK_RETURN), Answer::yes);
    MessageBox second = question;
    second.defaultButton = 2;
    EXPECT_EQ(askWithKey(second, VK_RETURN), Answer::no);
    EXPECT_EQ(askWithKey({.text = "Hecho"}, VK_RETURN), Answer::ok);
}

TEST_F(Boxes, EscTakesTheMildestAnswer) {
    EXPECT_EQ(askWithKey(question, VK_ESCAPE), Answer::cancel);
    EXPECT_EQ(askWithKey(yesNo, VK_ESCAPE), Answer::no);
    EXPECT_EQ(askWithKey({.text = "Hecho"}, VK_ESCAPE), Answer::ok);
}

TEST_F(Boxes, LettersAnswerWithAltAndWithout) {
    EXPECT_EQ(askWithKey(question, 'S'), Answer::yes);
    EXPECT_EQ(askWithKey(question, 'N'), Answer::no);
    EXPECT_EQ(askWithKey(question, 'C'), Answer::cancel);
    EXPECT_EQ(askWithKey(question, 'N', VK_MENU), Answer::no);
}

TEST_F(Boxes, TheKeyboardMovesBetweenTheButtons) {
    whenBoxOpens([this](HWND) {
        press(VK_TAB);
        press(VK_RETURN);
    });
    EXPECT_EQ(screen().show(question), Answer::no);
    whenBoxOpens([this](HWND) {
        press(VK_LEFT);
        press(VK_RETURN);
    });
    EXPECT_EQ(screen().show(question), Answer::cancel);
}

TEST_F(Boxes, TheMouseAnswersToo) {
    whenBoxOpens([this](HWND box) { clickAt(childrenOf(box, L"Button").at(1), {8, 8}); });
    EXPECT_EQ(screen().show(question), Answer::no);
}

TEST_F(Boxes, TextButtonsAndTitleAreAsAsked) {
    whenBoxOpens([this](HWND box) {
        std::vector<std::string> captions;
        for (const HWND button : childrenOf(box, L"Button")) {
            captions.push_back(win32::fromWide(win32::textOf(button)));
        }
        EXPECT_THAT(captions, ElementsAre("&Sí", "&No", "&Cancelar"));
        EXPECT_EQ(textOfBox(box), "¿Seguro?");
        EXPECT_EQ(win32::fromWide(win32::textOf(box)), "VELMORA");
        press(VK_ESCAPE);
    });
    screen().show(question);
}

TEST_F(Boxes, SearchFiltersAsTheUserTypesByWordsWithoutAccents) {
    whenBoxOpens([this](HWND) {
        type(U"hijos ibanez");
        press(VK_RETURN);
    });
    EXPECT_EQ(screen().search(customers()), std::optional<std::size_t>(2));
}

TEST_F(Boxes, ArrowKeysMoveInTheListWhileTheBoxKeepsTheKeyboard) {
    whenBoxOpens([this](HWND) {
        press(VK_DOWN);
        press(VK_DOWN);
        press(VK_UP);
        press(VK_RETURN);
    });
    EXPECT_EQ(screen().search(customers()), std::optional<std::size_t>(1));
}

TEST_F(Boxes, ALongListIsReadOnAsTheUserGoesDown) {
    whenBoxOpens([this](HWND) {
        for (int i = 0; i < 30; ++i) {
            press(VK_NEXT);
        }
        press(VK_RETURN);
    });
    const auto chosen = screen().search(customers(2000));
    ASSERT_TRUE(chosen);
    EXPECT_GT(*chosen, 200u);
}

TEST_F(Boxes, EscLeavesTheSearchWithoutAChoice) {
    whenBoxOpens([this](HWND) { press(VK_ESCAPE); });
    EXPECT_EQ(screen().search(customers()), std::nullopt);
}

TEST_F(Boxes, AFilterThatNothingHoldsChoosesNothing) {
    whenBoxOpens([this](HWND) {
        type(U"zzz");
        press(VK_RETURN);
        press(VK_ESCAPE);
    });
    EXPECT_EQ(screen().search(customers()), std::nullopt);
}

TEST_F(Boxes, ProgressAppearsOnlyWhenTheWorkTakesLongAndCanBeCancelled) {
    const auto progress = screen().progress("Escribiendo");
    progress->show("Fila 1", 0.1);
    EXPECT_FALSE(progress->cancelled());
    whenBoxOpens([this](HWND window) {
        EXPECT_EQ(win32::fromWide(win32::textOf(window)), "Escribiendo");
        postKey(GetFocus(), VK_ESCAPE);
    });
    const ULONGLONG end = GetTickCount64() + 4000;
    while (!progress->cancelled() && GetTickCount64() < end) {
        Sleep(20);
        progress->show("Fila 2", std::nullopt);
    }
    EXPECT_TRUE(progress->cancelled());
    EXPECT_FALSE(boxesAwaited());
}

}  // namespace
}  // namespace velmora::testing
