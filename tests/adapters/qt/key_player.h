#pragma once
// Keys pressed one after the other in whatever window has the keyboard, also in the windows and boxes that a key opens.

#include <QAbstractButton>
#include <QPointer>
#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::testing {

struct PressedKey {
    int code = 0;  ///< Qt::Key; 0: a character
    QString text = {};
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// A walk over the keyboard, written as people tell it: "1001⏎12,7⏎". "⏎" is Enter, "↓" and "↹" (Tab), "⇤" (Shift and
/// Tab) are what they show, "{F7}" is a function key, "{^N}" Control and a letter, "{!C}"
/// Alt and a letter, "{Esc}" Esc.
std::vector<PressedKey> keysOf(std::string_view walk);

class KeyPlayer {
  public:
    /// Presses the keys and returns when all have been pressed and what they opened has ended, or when a box with this
    /// text opens, which is then closed. Returns the number of keys pressed; -1 when the keys ran dry, or a window did
    /// not come, without the box.
    int play(const std::vector<PressedKey>& keys, const std::string& boxAtTheEnd = {});

  private:
    void step();
    static QWidget* target();
    bool endBoxOpen() const;
    bool awaitsClick(const QWidget& window);

    std::vector<PressedKey> keys_;
    QString boxAtTheEnd_;
    std::size_t pressed_ = 0;
    int waits_ = 0;
    int underWay_ = 0;
    QPointer<QAbstractButton> clicking_;
    QWidget* pressedIn_ = nullptr;  ///< the window of the innermost key under way
    bool ended_ = false;
    bool boxSeen_ = false;
};

}  // namespace velmora::testing
