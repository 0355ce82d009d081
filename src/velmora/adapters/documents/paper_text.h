#pragma once
// Text on paper: measuring, line breaking, drawing. Lengths are screen pixels.

#include <QFont>
#include <QRectF>
#include <QRgb>
#include <QStringList>

class QPainter;

namespace velmora::documents {

/// Smallest size to which a font is reduced for a long number.
inline constexpr int smallestLetters = 5;

double lineHeight(const QFont& font);
double heightOf(const QStringList& lines, const QFont& font);

/// The width of the text on one line.
double widthOf(const QString& text, const QFont& font);

/// The font reduced by this many pixels, never below `smallestLetters`.
QFont reduced(QFont font, int pixels);

/// The font, or a smaller one with which the text fits into the width.
QFont fitting(const QString& text, QFont font, double inWidth);

/// The text split at line ends of any kind.
QStringList paragraphsOf(const QString& text);

/// The lines of a text in a width, broken between words or, where a word is wider, within it. Leading blanks and tabs
/// of a paragraph are kept, trailing blanks of a line removed. Tab stops are every eight digits.
QStringList linesOf(const QString& text, const QFont& font, double inWidth);

void drawLines(QPainter& painter, const QRectF& place, const QStringList& lines, const QFont& font, QRgb colour,
               Qt::Alignment alignment = Qt::AlignLeft);

/// Draws one of the lines of `linesOf` with the same tab stops.
void drawRunningLine(QPainter& painter, const QRectF& place, const QString& text, const QFont& font, QRgb colour);

}  // namespace velmora::documents
