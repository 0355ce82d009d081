#include "velmora/adapters/qt/first_paint.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace velmora::qt {
namespace {

/// Keeps in which order it was painted and something else was done.
class Painted : public QWidget {
  public:
    std::string log;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override { log += "painted "; }
};

TEST(FirstPaintTest, CallsOnceAndOnlyWhenAWindowHasBeenPainted) {
    Painted window;
    const FirstPaint first([&] { window.log += "called "; });
    QCoreApplication::processEvents();
    EXPECT_EQ(window.log, "") << "no window is shown";
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.log.ends_with("called "); }));
    EXPECT_TRUE(window.log.starts_with("painted "));
    window.log.clear();
    window.repaint();
    QTest::qWait(1);
    EXPECT_EQ(window.log, "painted ");
}

TEST(FirstPaintTest, CallsNothingAfterItsLifetime) {
    Painted window;
    {
        const FirstPaint first([&] { window.log += "called "; });
        window.show();
        window.repaint();
    }
    QTest::qWait(1);
    EXPECT_EQ(window.log.find("called"), std::string::npos);
}

}  // namespace
}  // namespace velmora::qt
