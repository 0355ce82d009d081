#pragma once
// What the desktop shows while an engine waits for another user: words in the status line of the form in front.

#include "velmora/adapters/qt/qt_screen.h"

namespace velmora::desktop {

/// Tells or takes back "Esperando a otro usuario…" on the form in front, at once; does nothing without a form, or while
/// the form tells of other work.
class LockNote {
  public:
    /// `screen` must live longer.
    explicit LockNote(qt::QtScreen& screen) : screen_(screen) {}
    void tell(bool waits);

  private:
    qt::QtScreen& screen_;
    bool told_ = false;
};

}  // namespace velmora::desktop
