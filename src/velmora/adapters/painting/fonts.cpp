#include "velmora/adapters/painting/fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QStringList>
#include <algorithm>

namespace velmora::painting {

namespace {

bool hasTabularDigits(const QFont& font) {
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(QLatin1Char('0'));
    return std::ranges::all_of(QStringLiteral("123456789"),
                               [&](QChar digit) { return metrics.horizontalAdvance(digit) == width; });
}

bool isInstalled(const QString& family) {
    return QFontDatabase::families().contains(family);
}

}  // namespace

// The desktop's own font if all its digits have the same width, so that numbers align. The usual fallback font is very
// wide; its condensed variant suits a dense form.
QFont baseFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSize(9);
    const QString resolved = QFontInfo(font).family();
    const QString wide = QStringLiteral("DejaVu Sans");
    if (resolved != wide && hasTabularDigits(font)) {
        return font;
    }
    const QString narrow = QStringLiteral("DejaVu Sans Condensed");
    font.setFamily(isInstalled(narrow) || !isInstalled(wide) ? narrow : wide);
    return font;
}

}  // namespace velmora::painting
