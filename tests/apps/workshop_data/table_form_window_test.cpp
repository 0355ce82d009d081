#include <QApplication>
#include <QWidget>

#include "adapters/qt/key_player.h"
#include "adapters/qt/qt_bench.h"
#include "workshop_bench.h"

namespace velmora::workshop_data {
namespace {

class TableFormWindowTest : public testing::QtBench {
  protected:
    /// The form of a table on a real window, and keys pressed in it.
    void type(Workshop& workshop, const char* table, const char* keys) {
        platform::Desk desk{*screen_, workshop.components, workshop.services, workshop.clock};
        TableForm form(workshop.session, desk, *findTable(table), {});
        play(form, [&] { EXPECT_GE(testing::KeyPlayer().play(testing::keysOf(keys)), 0); });
    }
};

TEST_F(TableFormWindowTest, AnEmptyTableIsFilledByTypingAndEnterAlone) {
    Workshop shop(emptyDatabase());
    type(shop, "RSEC", "1⏎Torno⏎⏎⏎2⏎Corte⏎⏎");
    EXPECT_EQ(shop.query("SELECT RSEC_ID,RSEC_NOM FROM RSEC ORDER BY RSEC_ID"), "1\tTorno\n2\tCorte");
}

TEST_F(TableFormWindowTest, ARowIsFoundChangedAndSavedByKeysAlone) {
    Workshop demo(demoDatabase());
    type(demo, "ART", "{F2}f1140↹↹↹↹↹↹↹1,55{F5}");
    EXPECT_EQ(demo.query("SELECT ART_Pve FROM ART WHERE ART_COD='RED-F1140'"), "1,55");
}

TEST_F(TableFormWindowTest, ATypedPointIsTheDecimalComma) {
    Workshop shop(emptyDatabase());
    type(shop, "materiales", "1⏎0.045⏎⏎");
    EXPECT_EQ(shop.query("SELECT mat_id,mat_pcs FROM materiales"), "1\t0,045");
}

// The frame's close button while the row cannot be saved: it is not lost.
TEST_F(TableFormWindowTest, TheFrameDoesNotCloseOverARowThatIsRefused) {
    Workshop shop(emptyDatabase());
    platform::Desk desk{shop.screen, shop.components, shop.services, shop.clock};
    TableForm form(shop.session, desk, *findTable("RSEC"), {});
    play(form, [&] {
        testing::KeyPlayer().play(testing::keysOf("⏎Torno"));
        shop.screen.queue(screen::Answer::yes);
        QApplication::activeWindow()->close();
        EXPECT_FALSE(form.isUnloaded());
        EXPECT_EQ(shop.screen.messages.back().text, "Número: falta.");
        shop.screen.queue(screen::Answer::no);
        QApplication::activeWindow()->close();
        EXPECT_TRUE(form.isUnloaded());
    });
}

}  // namespace
}  // namespace velmora::workshop_data
