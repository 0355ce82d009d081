#include "velmora/adapters/qt/window_memory.h"

#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QTableView>

#include <gmock/gmock.h>

#include "qt_bench.h"
#include "sample_form.h"
#include "support/temporary_folder.h"

namespace velmora::testing {
namespace {

using qt::WindowMemory;

const QRect left{0, 0, 1280, 720};
const QRect right{1280, 0, 1920, 1080};

TEST(WhollyShown, AWindowIsMovedOntoTheScreenThatShowsMostOfIt) {
    struct Row {
        QRect window;
        std::optional<QRect> shown;
    };
    for (const Row& row : {
             Row{{100, 50, 600, 400}, QRect(100, 50, 600, 400)},
             Row{{2000, 200, 600, 400}, QRect(2000, 200, 600, 400)},
             Row{{1000, 50, 600, 400}, QRect(1280, 50, 600, 400)},
             Row{{900, 50, 600, 400}, QRect(680, 50, 600, 400)},
             Row{{100, 600, 600, 400}, QRect(100, 280, 600, 400)},
             Row{{10, 10, 3000, 2000}, QRect(1280, 0, 1920, 1040)},
             Row{{0, 0, 1280, 900}, QRect(0, 0, 1280, 680)},
             Row{{-500, 50, 600, 400}, QRect(0, 50, 600, 400)},
             Row{{-550, 50, 600, 400}, std::nullopt},
             Row{{5000, 50, 600, 400}, std::nullopt},
             Row{{100, -200, 600, 400}, std::nullopt},
         }) {
        EXPECT_EQ(qt::whollyShown(row.window, {left, right}), row.shown) << row.window.x() << ", " << row.window.y();
    }
}

class Remembering : public QtBench {
  protected:
    Remembering() { form.history.setColumns({{.field = 0, .caption = "Id"}, {.field = 1, .caption = "Pedido/Texto"}}); }

    void remember() { screen_->remember(std::make_unique<WindowMemory>(QString::fromStdString(file()))); }
    std::string file() const { return folder.file("ventanas.ini"); }
    QTableView& table() const { return dynamic_cast<QTableView&>(widgetOf(form.history)); }

    support::TemporaryFolder folder;
    SampleForm form;
};

TEST_F(Remembering, AWindowOpensWhereAndAsLargeAsItWasLeft) {
    remember();
    play(form, [&] {
        screen_->top()->resize(701, 503);
        screen_->top()->move(31, 43);
        QApplication::processEvents();
    });
    remember();
    SampleForm again;
    play(again, [&] {
        QApplication::processEvents();
        EXPECT_EQ(screen_->top()->size(), QSize(701, 503));
        EXPECT_EQ(screen_->top()->pos(), QPoint(31, 43));
    });
}

TEST_F(Remembering, APlaceOffThePresentScreensIsNotUsed) {
    WindowMemory(QString::fromStdString(file())).keepPlace("frmSample", {.area = QRect(9000, 9000, 400, 300)});
    remember();
    play(form, [&] {
        EXPECT_EQ(screen_->top()->size(), screen_->top()->openingSize());
        EXPECT_TRUE(screen_->top()->screen()->geometry().contains(screen_->top()->pos()));
    });
}

TEST_F(Remembering, AMaximizedWindowOpensMaximized) {
    WindowMemory(QString::fromStdString(file()))
        .keepPlace("frmSample", {.area = QRect(10, 20, 400, 300), .maximized = true});
    remember();
    play(form, [&] { EXPECT_TRUE(screen_->top()->isMaximized()); });
    const auto kept = WindowMemory(QString::fromStdString(file())).placeOf("frmSample");
    ASSERT_TRUE(kept.has_value());
    EXPECT_TRUE(kept->maximized);
}

TEST_F(Remembering, AColumnKeepsTheWidthThatTheUserGaveIt) {
    remember();
    play(form, [&] {
        table().horizontalHeader()->resizeSection(1, 217);
        form.history.refresh();
        EXPECT_EQ(table().columnWidth(1), 217) << "after new rows";
        screen_->top()->resize(900, 700);
        QApplication::processEvents();
        EXPECT_EQ(table().columnWidth(1), 217) << "in a wider table";
    });
    remember();
    SampleForm again;
    again.history.setColumns({{.field = 1, .caption = "Pedido/Texto"}, {.field = 0, .caption = "Id"}});
    play(again, [&] {
        auto& other = dynamic_cast<QTableView&>(widgetOf(again.history));
        EXPECT_EQ(other.columnWidth(0), 217) << "by its caption";
    });
}

TEST_F(Remembering, ASearchOpensAsLargeAsItWasLeft) {
    const screen::SearchWindow window{
        .title = "Buscar clientes",
        .searchColumn = "CLI_NOM",
        .firstCaption = "Codigo",
        .secondCaption = "Nombre",
        .firstWidth = 600,
        .secondWidth = 6000,
        .rows = sql::Recordset(sql::rowsInMemory({{"CLI_ID"}, {"CLI_COD"}, {"CLI_NOM"}}, {{1, 1000, "Talleres"}}))};
    remember();
    whenBoxOpens([](QWidget& dialog) {
        dialog.resize(555, 444);
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Escape);
    });
    screen_->search(window);
    whenBoxOpens([](QWidget& dialog) {
        EXPECT_EQ(dialog.size(), QSize(555, 444));
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Escape);
    });
    screen_->search(window);
}

TEST_F(Remembering, WithoutAMemoryNothingIsWritten) {
    play(form, [&] { table().horizontalHeader()->resizeSection(1, 217); });
    EXPECT_TRUE(folder.files().empty());
}

}  // namespace
}  // namespace velmora::testing
