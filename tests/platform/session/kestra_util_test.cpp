#include "velmora/platform/session/kestra_util.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

#include "support/fake_screen.h"
#include "support/scripted_connection.h"

namespace velmora::session {
namespace {

using ::testing::ElementsAre;

class KestraUtilTest : public ::testing::Test {
  protected:
    support::ScriptedScreen screen;
    support::ScriptedConnection connection;
    KestraUtil util{screen, connection};
    screen::Form form{"frm"};
    screen::TextBox box{form, "Text1", 0};

    KestraUtilTest() {
        util.ColorFoco(65535);
        util.ColorNormal(16777215);
    }

    std::string left(std::string_view text, std::string_view mask) {
        box.setText(text);
        util.SalirCampo(box, mask);
        return box.text();
    }
    /// The result of typing the keys one by one at the end of the field.
    std::string typed(std::string_view keys, bool soloEnteros) {
        box.setText("");
        for (const char key : keys) {
            screen::KeyPress press{static_cast<char32_t>(key)};
            util.TeclaCampo(box, press, soloEnteros);
            if (press.character != 0) {
                box.setText(box.text() + static_cast<char>(press.character));
            }
        }
        return box.text();
    }
    char32_t passed(char32_t key, bool soloEnteros = false) {
        screen::KeyPress press{key};
        util.TeclaCampo(box, press, soloEnteros);
        return press.character;
    }
};

TEST_F(KestraUtilTest, EnteringPaintsTheFieldAndSelectsIt) {
    box.setText("24,00");
    util.EntrarCampo(box);
    EXPECT_EQ(box.backColor(), screen::colors::yellow);
    EXPECT_TRUE(box.allSelected());
    EXPECT_EQ(box.text(), "24,00");
}

TEST_F(KestraUtilTest, LeavingPaintsBackAndAnEmptyMaskKeepsTheText) {
    box.setText("REF 7.50");
    util.EntrarCampo(box);
    util.SalirCampo(box);
    EXPECT_EQ(box.backColor(), screen::colors::white);
    EXPECT_EQ(box.text(), "REF 7.50");
}

TEST_F(KestraUtilTest, LeavingFormatsNumbers) {
    EXPECT_EQ(left("12,5", "#0.00"), "12,50");
    EXPECT_EQ(left("1234,567", "###,###,##0.00"), "1.234,57");
    EXPECT_EQ(left("1.5", "#0.00"), "15,00");
    EXPECT_EQ(left("abc", "#0.00"), "abc");
    EXPECT_EQ(left("", "#0.00"), "");
}

TEST_F(KestraUtilTest, LeavingRaisesNoChangeWhenTheMaskChangesNothing) {
    box.setText("12,50");
    int changes = 0;
    box.onChange = [&] { ++changes; };
    util.SalirCampo(box, "#0.00");
    EXPECT_EQ(changes, 0);
}

TEST_F(KestraUtilTest, LeavingReadsDatesHoweverTheyAreTyped) {
    EXPECT_EQ(left("150126", "dd/mm/yyyy"), "15/01/2026");
    EXPECT_EQ(left("15012026", "dd/mm/yyyy"), "15/01/2026");
    EXPECT_EQ(left("5/1/26", "dd/mm/yyyy"), "05/01/2026");
    EXPECT_EQ(left(" 15/01/2026 ", "dd/mm/yyyy"), "15/01/2026");
    EXPECT_EQ(left("010160", "dd/mm/yyyy"), "01/01/1960");
}

TEST_F(KestraUtilTest, LeavingKeepsWhatIsNoDate) {
    for (const std::string text : {"", "mañana", "310226", "31/02/2026", "31/02/26", "12/31/2024", "130026", "5",
                                   "12/5", "1501", "15/01/", "/01/2026"}) {
        EXPECT_EQ(left(text, "dd/mm/yyyy"), text);
    }
}

TEST_F(KestraUtilTest, KeysOfANumberComeThrough) {
    EXPECT_EQ(typed("12,5", false), "12,5");
    EXPECT_EQ(typed("12.5", false), "12,5");
    EXPECT_EQ(typed("-3,2", false), "-3,2");
    EXPECT_EQ(typed("1a2 b3", false), "123");
}

TEST_F(KestraUtilTest, OneCommaAndOneLeadingMinusAtMost) {
    EXPECT_EQ(typed("1,2,3.4", false), "1,234");
    EXPECT_EQ(typed("--1-2", false), "-12");
    EXPECT_EQ(typed("5-", false), "5");
}

TEST_F(KestraUtilTest, WholeNumbersLetNoSeparatorThrough) {
    EXPECT_EQ(typed("1,2.3", true), "123");
    EXPECT_EQ(typed("-17", true), "-17");
}

TEST_F(KestraUtilTest, EditingKeysComeThrough) {
    EXPECT_EQ(passed(8), 8U);
    EXPECT_EQ(passed(13), 13U);
    EXPECT_EQ(passed(22), 22U);
    EXPECT_EQ(passed(U' '), 0U);
    EXPECT_EQ(passed(U'ñ'), 0U);
}

TEST_F(KestraUtilTest, AKeyOverASelectionReplacesWhatStoodThere) {
    box.setText("-12,5");
    EXPECT_EQ(passed(U','), 0U);
    EXPECT_EQ(passed(U'-'), 0U);
    util.EntrarCampo(box);
    EXPECT_EQ(passed(U','), U',');
    EXPECT_EQ(passed(U'-'), U'-');
}

TEST_F(KestraUtilTest, SearchingGivesTheChosenRowJoined) {
    connection.answer("Select CLI_ID,CLI_COD,CLI_NOM FROM CLI", {"CLI_ID", "CLI_COD", "CLI_NOM"},
                      {{1, 1001, "NORTE"}, {2, 1002, sql::Value()}, {3, 1003, "SUR, S.L."}});
    screen.queuePick(2);
    EXPECT_EQ(util.Buscar("Select CLI_ID,CLI_COD,CLI_NOM FROM CLI", "CLI_NOM", "Codigo", "Nombre FISCAL del Cliente",
                          "Buscar clientes por nombre FISCAL", 600, 6000, false),
              "3\x01"
              "1003\x01"
              "SUR, S.L.");
    ASSERT_EQ(screen.searches.size(), 1U);
    const screen::SearchWindow& window = screen.searches[0].window;
    EXPECT_EQ(window.title, "Buscar clientes por nombre FISCAL");
    EXPECT_EQ(window.searchColumn, "CLI_NOM");
    EXPECT_EQ(window.firstCaption, "Codigo");
    EXPECT_EQ(window.secondCaption, "Nombre FISCAL del Cliente");
    EXPECT_EQ(window.firstWidth, 600);
    EXPECT_EQ(window.secondWidth, 6000);
    EXPECT_EQ(screen.searches[0].rowCount, 3U);

    screen.queuePick(1);
    EXPECT_EQ(util.Buscar("Select CLI_ID,CLI_COD,CLI_NOM FROM CLI", "CLI_NOM", "", "", "", 0, 0, false),
              "2\x01"
              "1002\x01");
}

TEST(JoinedRowTest, ComesApartIntoTheColumnsItWasMadeOf) {
    const std::string row = joinedRow({7, "SUR, S.L.", sql::Value(), 1.5});
    EXPECT_THAT(columnsOf(row), ::testing::ElementsAre("7", "SUR, S.L.", "", "1,5"));
    EXPECT_THAT(columnsOf(""), ::testing::ElementsAre(""));
}

TEST_F(KestraUtilTest, ASearchThatIsLeftGivesNothing) {
    connection.answer("Select MAQ_ID FROM MAQ", {"MAQ_ID"}, {{131}});
    screen.queuePick(std::nullopt);
    EXPECT_EQ(util.Buscar("Select MAQ_ID FROM MAQ", "MAQ_ID", "", "", "", 0, 0, false), "");
}

TEST_F(KestraUtilTest, RoundsHalvesAwayFromZeroOnTheDecimalValue) {
    EXPECT_DOUBLE_EQ(util.Redondear(1.005, 2), 1.01);
    EXPECT_DOUBLE_EQ(util.Redondear(2.675, 2), 2.68);
    EXPECT_DOUBLE_EQ(util.Redondear(-2.675, 2), -2.68);
}

}  // namespace
}  // namespace velmora::session
