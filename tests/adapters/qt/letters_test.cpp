#include "velmora/adapters/qt/letters.h"

#include <QApplication>
#include <QFont>

#include <gtest/gtest.h>

namespace velmora::qt {
namespace {

TEST(LettersTest, TheSizesThatDesktopsComeWithAreNinePoints) {
    for (const double desktop : {8.0, 9.0, 10.0, 11.0}) {
        EXPECT_DOUBLE_EQ(letterPoints(desktop, 100), 9) << desktop;
    }
}

TEST(LettersTest, LargerOnesGrowWithTheDesktopsAndThePercentage) {
    EXPECT_DOUBLE_EQ(letterPoints(22, 100), 18);
    EXPECT_DOUBLE_EQ(letterPoints(10, 150), 13.5);
    EXPECT_DOUBLE_EQ(letterPoints(22, 50), 9);
}

TEST(LettersTest, AreThoseOfAllWindows) {
    const QFont before = QApplication::font();
    setLetterSize(100);
    const double ordinary = QApplication::font().pointSizeF();
    setLetterSize(150);
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), ordinary * 1.5);
    EXPECT_EQ(QApplication::font().family(), before.family());
    QApplication::setFont(before);
}

}  // namespace
}  // namespace velmora::qt
