#pragma once
// Letters on paper: how much room a text takes, where its lines end, and drawing them. Lengths are pixels of the
// screen.

#include <QFont>
#include <QRectF>
#include <QRgb>
#include <QStringList>

class QPainter;

namespace velmora::documents {

/// No number makes letters smaller than this, however long it is.
inline constexpr int smallestLetters = 5;

double lineHeight(const QFont& font);
double heightOf(const QStringList& lines, const QFont& font);

/// The width in which the text stands on one line.
double widthOf(const QString& text, const QFont& font);

/// The font smaller by so many pixels, never below `smallestLetters`.
QFont reduced(QFont font, int pixels);

/// The font, or a smaller one in which the text fits into the width.
QFont fitting(const QString& text, QFont font, double inWidth);

/// The text as it was divided by line ends of any kind.
QStringList paragraphsOf(const QString& text);

/// The lines of a text in a width, broken between words or, where a word is wider, within it. What a paragraph begins
/// with, blanks and tabs too, stays; blanks at the end of a line go. Tab stops stand at every eight digits.
QStringList linesOf(const QString& text, const QFont& font, double inWidth);

void drawLines(QPainter& painter, const QRectF& place, const QStringList& lines, const QFont& font, QRgb colour,
               Qt::Alignment alignment = Qt::AlignLeft);

/// One of the lines of `linesOf`, its tabs as wide as they were there.
void drawRunningLine(QPainter& painter, const QRectF& place, const QString& text, const QFont& font, QRgb colour);

}  // namespace velmora::documents
