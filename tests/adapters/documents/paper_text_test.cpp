#include "velmora/adapters/documents/paper_text.h"

#include <chrono>

#include <gtest/gtest.h>

#include "velmora/adapters/painting/fonts.h"
#include "velmora/adapters/painting/graphics.h"

namespace velmora::documents {
namespace {

constexpr double width = 300;

QFont letters() {
    QFont font = painting::baseFont();
    font.setPixelSize(11);
    return font;
}

class LinesOf : public testing::Test {
  protected:
    LinesOf() { graphics_.require(); }

    static double seconds(const QString& text) {
        const auto begun = std::chrono::steady_clock::now();
        EXPECT_GT(linesOf(text, letters(), width).size(), 100);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    }

  private:
    painting::Graphics graphics_;
};

TEST_F(LinesOf, ALongTextLosesNothingAndNoLineIsTooWide) {
    QString text;
    for (int word = 0; word < 3000; ++word) {
        text += QString::number(word * 7919) + (word % 10 == 0 ? QStringLiteral("😀ñ") : QStringLiteral(" "));
    }
    const QStringList lines = linesOf(text, letters(), width);
    QString together = lines.join(QString());
    EXPECT_EQ(together.remove(QLatin1Char(' ')), text.remove(QLatin1Char(' ')));
    for (const QString& line : lines) {
        EXPECT_LE(widthOf(line, letters()), width + 2) << line.toStdString();
        EXPECT_TRUE(line.isValidUtf16());
    }
}

TEST_F(LinesOf, ALongWordTakesTimeAsItIsLong) {
    seconds(QString(8000, QLatin1Char('e')));  // the font is loaded
    // Ten times as long; with the square of the length it would take a hundred times as long.
    EXPECT_LT(seconds(QString(80000, QLatin1Char('e'))), 40 * seconds(QString(8000, QLatin1Char('e'))));
}

TEST_F(LinesOf, AnEmptyParagraphIsALine) {
    EXPECT_EQ(linesOf(QStringLiteral("a\n\nb\r\n"), letters(), width),
              (QStringList{QStringLiteral("a"), QString(), QStringLiteral("b"), QString()}));
}

}  // namespace
}  // namespace velmora::documents
