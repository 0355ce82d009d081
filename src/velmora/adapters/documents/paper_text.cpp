#include "velmora/adapters/documents/paper_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <vector>

namespace velmora::documents {

namespace {

constexpr int digitsOfTab = 8;
/// Many lines, and few enough to be laid out in milliseconds.
constexpr qsizetype lettersAtOnce = 2000;

QTextOption lineOption(const QFont& font, QTextOption::WrapMode wrapping) {
    QTextOption option;
    option.setWrapMode(wrapping);
    option.setTabStopDistance(digitsOfTab * QFontMetricsF(font).horizontalAdvance(QLatin1Char('0')));
    return option;
}

QString withoutBlanksAtEnd(QString text) {
    while (!text.isEmpty() && text.back().isSpace()) {
        text.chop(1);
    }
    return text;
}

/// The piece of a paragraph that begins there and is laid out at once; no character of it is cut in two.
QString pieceOf(const QString& paragraph, qsizetype start) {
    QString piece = paragraph.mid(start, lettersAtOnce);
    if (start + piece.size() < paragraph.size() && piece.back().isHighSurrogate()) {
        piece.chop(1);
    }
    return piece;
}

struct Stretch {
    qsizetype start;
    qsizetype length;
};

std::vector<Stretch> stretchesOf(const QString& piece, const QFont& font, double inWidth) {
    std::vector<Stretch> stretches;
    QTextLayout layout(piece, font);
    layout.setTextOption(lineOption(font, QTextOption::WrapAtWordBoundaryOrAnywhere));
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(inWidth);
        stretches.push_back({line.textStart(), line.textLength()});
    }
    layout.endLayout();
    return stretches;
}

/// A long paragraph is laid out in pieces: for each line the toolkit measures the rest of a word without a blank, whose
/// time would grow with the square of its length. The last line of a piece belongs to the next one.
void appendLines(QStringList& lines, const QString& paragraph, const QFont& font, double inWidth) {
    if (paragraph.isEmpty()) {
        lines.append(QString());
    }
    for (qsizetype start = 0; start < paragraph.size();) {
        const QString piece = pieceOf(paragraph, start);
        std::vector<Stretch> stretches = stretchesOf(piece, font, inWidth);
        if (start + piece.size() < paragraph.size() && stretches.size() > 1) {
            stretches.pop_back();
        }
        for (const Stretch& stretch : stretches) {
            lines.append(withoutBlanksAtEnd(piece.mid(stretch.start, stretch.length)));
        }
        start += std::max<qsizetype>(1, stretches.back().start + stretches.back().length);
    }
}

}  // namespace

double lineHeight(const QFont& font) {
    return QFontMetricsF(font).lineSpacing();
}

double heightOf(const QStringList& lines, const QFont& font) {
    return static_cast<double>(lines.size()) * lineHeight(font);
}

double widthOf(const QString& text, const QFont& font) {
    // Rounded up: a text is not drawn when it is wider than its line by a fraction.
    return std::ceil(QFontMetricsF(font).horizontalAdvance(text)) + 1;
}

QFont reduced(QFont font, int pixels) {
    font.setPixelSize(std::max(font.pixelSize() - pixels, smallestLetters));
    return font;
}

QFont fitting(const QString& text, QFont font, double inWidth) {
    while (font.pixelSize() > smallestLetters && widthOf(text, font) > inWidth) {
        font = reduced(font, 1);
    }
    return font;
}

QStringList paragraphsOf(const QString& text) {
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return plain.split(QLatin1Char('\n'));
}

QStringList linesOf(const QString& text, const QFont& font, double inWidth) {
    QStringList lines;
    for (const QString& paragraph : paragraphsOf(text)) {
        appendLines(lines, paragraph, font, inWidth);
    }
    return lines;
}

void drawLines(QPainter& painter, const QRectF& place, const QStringList& lines, const QFont& font, QRgb colour,
               Qt::Alignment alignment) {
    painter.setFont(font);
    painter.setPen(QColor(colour));
    const double height = lineHeight(font);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QRectF line(place.left(), place.top() + static_cast<double>(i) * height, place.width(), height);
        painter.drawText(line, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextDontClip, lines[i]);
    }
}

void drawRunningLine(QPainter& painter, const QRectF& place, const QString& text, const QFont& font, QRgb colour) {
    QTextLayout layout(text, font);
    layout.setTextOption(lineOption(font, QTextOption::NoWrap));
    layout.beginLayout();
    if (QTextLine line = layout.createLine(); line.isValid()) {
        line.setLineWidth(place.width());
    }
    layout.endLayout();
    painter.setPen(QColor(colour));
    layout.draw(&painter, place.topLeft());
}

}  // namespace velmora::documents
