#include "velmora/apps/walk/screen_picture.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace velmora::walk {

namespace {

constexpr QColor wallpaper{0x5B, 0x6B, 0x7C};
constexpr QColor activeBar{0xDF, 0xE4, 0xEA};
constexpr QColor otherBar{0xB9, 0xC1, 0xCA};
constexpr QColor frameLine{0x2C, 0x35, 0x3F};

QImage imageOf(QSize size, qreal ratio) {
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(wallpaper);
    return image;
}

/// The window's place with its frame, moved onto the screen as a window manager would.
QRect framed(const QWidget& window) {
    const QRect room = window.screen()->geometry();
    QRect place = window.geometry().adjusted(0, -titleBar, 0, 0);
    place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())));
    place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height())));
    return place;
}

void paintWindow(QPainter& painter, QWidget& window, const QRect& frame, bool active) {
    const QRect bar(frame.topLeft(), QSize(frame.width(), titleBar));
    painter.fillRect(bar, active ? activeBar : otherBar);
    painter.setPen(frameLine);
    painter.drawText(bar, Qt::AlignCenter, window.windowTitle());
    painter.drawPixmap(frame.topLeft() + QPoint(0, titleBar), window.grab());
    painter.drawRect(frame.adjusted(0, 0, -1, -1));
}

/// The topmost window and those that it stands on, the lowest first.
std::vector<QWidget*> pile(QWidget& topmost) {
    std::vector<QWidget*> windows;
    for (QWidget* window = &topmost; window != nullptr;) {
        windows.push_back(window);
        QWidget* below = window->parentWidget();
        window = below == nullptr ? nullptr : below->window();
    }
    std::ranges::reverse(windows);
    return windows;
}

}  // namespace

QImage screenPicture(QWidget& topmost) {
    const QScreen& screen = *topmost.screen();
    QImage image = imageOf(screen.geometry().size(), screen.devicePixelRatio());
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    for (QWidget* window : pile(topmost)) {
        paintWindow(painter, *window, framed(*window), window == &topmost);
    }
    if (QWidget* popup = QApplication::activePopupWidget()) {
        const QPoint moved = framed(topmost).topLeft() + QPoint(0, titleBar) - topmost.geometry().topLeft();
        painter.drawPixmap(popup->pos() + moved, popup->grab());
    }
    return image;
}

QImage windowPicture(QWidget& window) {
    const QRect frame(QPoint(0, 0), window.size() + QSize(0, titleBar));
    QImage image = imageOf(frame.size(), window.devicePixelRatio());
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    paintWindow(painter, window, frame, true);
    return image;
}

std::string whatIsOff(const QWidget& window) {
    const QSize room = window.screen()->geometry().size();
    const QSize needed = window.size() + QSize(0, titleBar);
    if (needed.width() <= room.width() && needed.height() <= room.height()) {
        return {};
    }
    return window.windowTitle().toStdString() + " needs " + std::to_string(needed.width()) + "x" +
           std::to_string(needed.height());
}

}  // namespace velmora::walk
