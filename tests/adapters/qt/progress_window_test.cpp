#include "velmora/adapters/qt/progress_window.h"

#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include "qt_bench.h"

namespace velmora::testing {
namespace {

using qt::ProgressWindow;

using ProgressWindowTest = QtBench;

TEST_F(ProgressWindowTest, AShortWorkShowsNoWindow) {
    ProgressWindow progress(QStringLiteral("Exportar"), nullptr, 60'000);
    progress.show("1.000 filas", std::nullopt);
    EXPECT_EQ(progress.window(), nullptr);
    EXPECT_FALSE(progress.cancelled());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ProgressWindowTest, ALongWorkShowsHowFarItIs) {
    ProgressWindow progress(QStringLiteral("Exportar"), nullptr, 0);
    progress.show("a medias", 0.5);
    ASSERT_NE(progress.window(), nullptr);
    EXPECT_TRUE(progress.window()->isVisible());
    EXPECT_TRUE(progress.window()->isModal());
    EXPECT_EQ(progress.window()->windowTitle(), QStringLiteral("Exportar"));
    EXPECT_EQ(progress.window()->labelText(), QStringLiteral("a medias"));
    EXPECT_EQ(progress.window()->value(), 500);
    progress.show("sin fin conocido", std::nullopt);
    EXPECT_EQ(progress.window()->maximum(), 0);
    progress.show("hecho", 7.0);
    EXPECT_EQ(progress.window()->value(), 1000);
    EXPECT_TRUE(progress.window()->isVisible());
}

TEST_F(ProgressWindowTest, TheButtonCancels) {
    ProgressWindow progress(QStringLiteral("Exportar"), nullptr, 0);
    progress.show("a medias", std::nullopt);
    auto* button = progress.window()->findChild<QPushButton*>();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("&Cancelar"));
    QTimer::singleShot(0, button, [button] { button->click(); });
    EXPECT_FALSE(progress.cancelled());
    progress.show("más", std::nullopt);
    EXPECT_TRUE(progress.cancelled());
    progress.show("todavía", std::nullopt);
    EXPECT_TRUE(progress.cancelled());
}

TEST_F(ProgressWindowTest, TheScreenGivesOneThatWaits) {
    const auto progress = screen_->progress("Exportar");
    progress->show("1.000 filas", std::nullopt);
    EXPECT_EQ(dynamic_cast<ProgressWindow&>(*progress).window(), nullptr);
}

}  // namespace
}  // namespace velmora::testing
