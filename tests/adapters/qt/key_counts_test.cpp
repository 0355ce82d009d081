#include <QApplication>
#include <QTimer>
#include <iostream>

#include <gtest/gtest.h>

#include "key_player.h"
#include "qt_bench.h"
#include "support/proposal_workshop.h"
#include "support/staff.h"

namespace velmora::testing {
namespace {

using support::ProposalWorkshop;

constexpr const char* saved = "Datos Grabados satisfactoriamente";

/// The main form on a real window, whose boxes and further windows are real ones too: all keys go to the keyboard
/// focus.
class MainFormByKeys : public QtBench {
  protected:
    MainFormByKeys() {
        support::addStaff(*workshop.database);
        workshop.database->execute(
            "INSERT INTO ENG (ENG_Tipo,ENG_Modulo,ENG_Z,ENG_Paso,ENG_Dp,ENG_Di,ENG_De,ENG_Dm,ENG_D1,ENG_A,ENG_B,ENG_C,"
            "ENG_H) VALUES (0,2,20,6.28,40,35,44,30,12,35,20,15,4.5)");
    }

    /// The keys from the form as it opens to the box that tells the save; -1 when it was not reached.
    int keysToSave(std::string_view walk) {
        int count = -1;
        atTheForm([&] { count = player.play(keysOf(walk), saved); });
        return count;
    }
    /// Shows the form; the user's part begins once a field has the focus: the form lets events through while it opens.
    void atTheForm(const std::function<void()>& user) {
        const std::function<void()> begin = [&] {
            if (form().activeControl() == nullptr) {
                QTimer::singleShot(1, qApp, begin);
                return;
            }
            user();
            form().unload();
        };
        QTimer::singleShot(0, qApp, begin);
        screen_->showModal(form());
    }
    static int told(const char* what, int count) {
        std::cout << "[ keys     ] " << what << ": " << count << '\n';
        return count;
    }
    proposal::frmBercialPiñones& form() {
        if (!form_) {
            form_ = std::make_unique<proposal::frmBercialPiñones>(workshop.session, desk);
        }
        return *form_;
    }
    std::string stored(const std::string& columns) { return workshop.query("select " + columns + " from DPI"); }

    ProposalWorkshop workshop;
    platform::Desk desk{*screen_, workshop.components, workshop.services, workshop.clock};
    KeyPlayer player;

  private:
    std::unique_ptr<proposal::frmBercialPiñones> form_;
};

// Customer, reference, toothing, bore, keyway, set screws, ten pieces.
TEST_F(MainFormByKeys, APlainSprocketInOneRoundTakesFortyKeys) {
    const int keys = keysToSave("1001⏎7781⏎⏎12,7⏎17⏎7,75⏎8,51⏎25⏎8⏎2⏎{F7}10{F5}");
    EXPECT_EQ(told("plain sprocket in one round", keys), 40);
    EXPECT_EQ(stored("DPI_RefCli"), "7781");
    EXPECT_EQ(stored("DPI_Z"), "17");
    EXPECT_EQ(stored("DPI_CubPVE"), "0") << "F7 has passed through the rim";
    EXPECT_EQ(stored("DPI_Eje"), "25");
    EXPECT_EQ(stored("DPI_Chav"), "8");
    EXPECT_EQ(stored("DPI_Pri"), "2");
    EXPECT_EQ(stored("DPI_Unidades"), "10");
}

TEST_F(MainFormByKeys, APlainSprocketWithHubTakesFortyKeysToo) {
    const int keys = keysToSave("1001⏎7781⏎⏎12,7⏎38⏎7,75⏎8,51⏎25⏎8⏎2⏎{F7}10{F5}");
    EXPECT_EQ(told("plain sprocket with hub", keys), 40);
    EXPECT_NE(stored("DPI_CubCortPESO"), "0");
}

// Customer, type, chain, teeth, keyway, pieces.
TEST_F(MainFormByKeys, ADoubleSprocket) {
    const int keys = keysToSave("1001⏎⏎↓↓↓↓⏎↓⏎17⏎⏎8⏎{F7}10{F5}");
    EXPECT_LE(told("double sprocket", keys), 30);
    EXPECT_EQ(stored("DPI_Tipo"), "4");
    EXPECT_EQ(stored("DPI_DmExt"), "74,5");
    EXPECT_EQ(stored("DPI_Chav"), "8");
}

// The gear is looked up by its module; its row brings all measures.
TEST_F(MainFormByKeys, AGear) {
    const int keys = keysToSave("1001⏎⏎e⏎ 2⇤⇤⇤⇤ 6⏎{F7}10{F5}");
    EXPECT_LE(told("gear", keys), 25);
    EXPECT_EQ(stored("DPI_Tipo"), "8");
    EXPECT_EQ(stored("DPI_DmExt"), "44");
    EXPECT_EQ(stored("DPI_Chav"), "6");
}

TEST_F(MainFormByKeys, ARack) {
    const int keys = keysToSave("1001⏎⏎c⏎4⏎40⏎1000⏎40⏎{F7}3{F5}");
    EXPECT_LE(told("rack", keys), 30);
    EXPECT_EQ(stored("DPI_Tipo"), "13");
    EXPECT_NE(stored("DPI_DisImporte"), "0");
}

// From the key that opens the labour form to the key that closes it; the proposal is saved already.
TEST_F(MainFormByKeys, ALabourLine) {
    int keys = -1;
    atTheForm([&] {
        EXPECT_GT(player.play(keysOf("1001⏎7781⏎⏎12,7⏎17⏎7,75⏎8,51⏎{F7}10{F5}"), saved), 0);
        keys = player.play(keysOf("{F1} 10⏎90⏎ {Esc}"));
    });
    EXPECT_EQ(told("labour line", keys), 10);
    EXPECT_EQ(workshop.query("select MoDpi_Minutos from MoDpi"), "90");
    EXPECT_NE(stored("DPI_ImpMO"), "0");
}

// From the empty form: the similar proposals, the first of them, its changes enabled, a copy of it with other pieces.
TEST_F(MainFormByKeys, ARepeatOrderFromTheHistory) {
    int keys = -1;
    atTheForm([&] {
        EXPECT_GT(player.play(keysOf("1001⏎7781⏎⏎12,7⏎17⏎7,75⏎8,51⏎{F7}10{F5}"), saved), 0);
        EXPECT_EQ(player.play(keysOf("{^N}")), 1);
        keys = player.play(keysOf("{F3}{F4} ⏎{!C}{F6}⏎⏎{F7}25{F5}"), saved);
    });
    EXPECT_LE(told("repeat order from the history", keys), 12);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "2");
    EXPECT_EQ(workshop.query("select DPI_Unidades from DPI where DPI_Id = 2"), "25");
    EXPECT_EQ(workshop.query("select DPI_RefCli from DPI where DPI_Id = 2"), "7781");
    EXPECT_EQ(workshop.query("select DPI_Unidades from DPI where DPI_Id = 1"), "10");
}

}  // namespace
}  // namespace velmora::testing
