#include "velmora/adapters/documents/paper_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace velmora::documents {

namespace {

constexpr int digitsOfTab = 8;

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
        QTextLayout layout(paragraph, font);
        layout.setTextOption(lineOption(font, QTextOption::WrapAtWordBoundaryOrAnywhere));
        layout.beginLayout();
        bool any = false;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(inWidth);
            lines.append(withoutBlanksAtEnd(paragraph.mid(line.textStart(), line.textLength())));
            any = true;
        }
        layout.endLayout();
        if (!any) {
            lines.append(QString());
        }
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
