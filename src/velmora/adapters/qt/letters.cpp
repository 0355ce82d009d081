#include "velmora/adapters/qt/letters.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <algorithm>

#include "velmora/adapters/painting/fonts.h"

namespace velmora::qt {

namespace {

constexpr double ordinaryPoints = 9;
/// Desktops come with 9 to 11 points; a larger size was chosen by someone who wants to read better.
constexpr double usualPoints = 11;
constexpr double whole = 100;  // percent

}  // namespace

// Chosen C-531: at the sizes that desktops come with the windows have 9 points, with which the main form fits on a
// small screen; above them the letters grow as the desktop's do.
double letterPoints(double desktopPoints, int percent) {
    return ordinaryPoints * std::max(1.0, desktopPoints / usualPoints) * percent / whole;
}

void setLetterSize(int percent) {
    QFont font = painting::baseFont();
    const QFont desktop = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(letterPoints(QFontInfo(desktop).pointSizeF(), percent));
    QApplication::setFont(font);
}

}  // namespace velmora::qt
