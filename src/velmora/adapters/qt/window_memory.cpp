#include "velmora/adapters/qt/window_memory.h"

#include <algorithm>

namespace velmora::qt {

namespace {

constexpr int titleBar = 32;  ///< pixels, with the upper edge of the frame
constexpr int lowerEdge = 8;  ///< pixels of the frame below
constexpr QSize graspable{100, titleBar};

// A slash would begin a group of the file.
QString keyOf(QString name) {
    return name.replace(QLatin1Char('/'), QLatin1Char('|')).replace(QLatin1Char('\\'), QLatin1Char('|'));
}
QString placeKey(const QString& window) {
    return QStringLiteral("ventanas/") + keyOf(window);
}
QString widthKey(const QString& table, const QString& column) {
    return QStringLiteral("columnas/") + keyOf(table) + QLatin1Char('/') + keyOf(column);
}

int areaOf(const QRect& rect) {
    return rect.isValid() ? rect.width() * rect.height() : 0;
}

}  // namespace

WindowMemory::WindowMemory(const QString& file) : settings_(file, QSettings::IniFormat) {}

std::optional<WindowMemory::Place> WindowMemory::placeOf(const QString& window) const {
    const QRect area = settings_.value(placeKey(window) + QStringLiteral("/lugar")).toRect();
    if (!area.isValid()) {
        return std::nullopt;
    }
    return Place{.area = area, .maximized = settings_.value(placeKey(window) + QStringLiteral("/maximizada")).toBool()};
}

void WindowMemory::keepPlace(const QString& window, const Place& place) {
    settings_.setValue(placeKey(window) + QStringLiteral("/lugar"), place.area);
    settings_.setValue(placeKey(window) + QStringLiteral("/maximizada"), place.maximized);
}

std::optional<int> WindowMemory::widthOf(const QString& table, const QString& column) const {
    const int width = settings_.value(widthKey(table, column)).toInt();
    return width > 0 ? std::optional(width) : std::nullopt;
}

void WindowMemory::keepWidth(const QString& table, const QString& column, int pixels) {
    settings_.setValue(widthKey(table, column), pixels);
}

QRect within(const QRect& window, const QRect& screen) {
    const QSize room(screen.width(), screen.height() - titleBar - lowerEdge);
    QRect placed(window.topLeft(), window.size().boundedTo(room));
    placed.moveLeft(std::clamp(placed.left(), screen.left(), screen.right() + 1 - placed.width()));
    placed.moveTop(
        std::clamp(placed.top(), screen.top(), screen.bottom() + 1 - placed.height() - titleBar - lowerEdge));
    return placed;
}

std::optional<QRect> whollyShown(const QRect& window, const QList<QRect>& screens) {
    const QRect title(window.topLeft(), QSize(window.width(), titleBar));
    const QRect* best = nullptr;
    for (const QRect& screen : screens) {
        const QRect seen = title.intersected(screen);
        if (seen.width() < std::min(graspable.width(), window.width()) || seen.height() < graspable.height() / 2) {
            continue;
        }
        if (best == nullptr || areaOf(window.intersected(screen)) > areaOf(window.intersected(*best))) {
            best = &screen;
        }
    }
    return best == nullptr ? std::nullopt : std::optional(within(window, *best));
}

}  // namespace velmora::qt
