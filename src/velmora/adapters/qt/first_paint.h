#pragma once
// What no window needs in order to be seen waits until the first one stands on the screen.

#include <QObject>
#include <functional>

namespace velmora::qt {

class FirstPaint : public QObject {
  public:
    /// Calls `then` once, as soon as a window of the application has been painted and its events have been handled;
    /// never when none is painted during this object's lifetime. Needs the application.
    explicit FirstPaint(std::function<void()> then);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> then_;
};

}  // namespace velmora::qt
