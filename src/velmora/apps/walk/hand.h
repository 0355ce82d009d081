#pragma once
// Presses keys in whatever window has the keyboard, as a person does who waits for a window before he types into it.

#include "velmora/apps/walk/steps.h"

class QWidget;

namespace velmora::walk {

class Hand {
  public:
    /// The window that takes the next key now. nullptr while there is none, while a key is at work in it, and until it
    /// is complete. To be asked again each millisecond, also while a key's work runs an inner event loop, as a window
    /// that it opened does.
    QWidget* ready();

    /// Returns when the key's work is done, which for one that opens a window is when that is closed.
    void press(const Key& key, QWidget& window);

  private:
    QWidget* last_ = nullptr;  ///< the window on top at the last look
    int calm_ = 0;             ///< how often it has been looked at
    int underWay_ = 0;
    QWidget* pressedIn_ = nullptr;  ///< the window of the innermost key under way
};

}  // namespace velmora::walk
