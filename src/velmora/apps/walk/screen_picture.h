#pragma once
// What a person would see: the open windows on a desktop, each in a frame. The platform without a display has no window
// manager, so frames are painted here.

#include <QImage>
#include <string>

class QWidget;

namespace velmora::walk {

/// The height of the title bar in a painted frame.
inline constexpr int titleBar = 28;

/// The screen with all windows from the first to the topmost; the topmost has the light title bar of an active one.
QImage screenPicture(QWidget& topmost);

/// The window alone in its frame.
QImage windowPicture(QWidget& window);

/// Empty when the window with its frame fits on the screen; otherwise what does not fit.
std::string whatIsOff(const QWidget& window);

}  // namespace velmora::walk
