#pragma once
// A person before real windows, on the offscreen platform: a form is shown, a part of code plays the hand.

#include <QTest>
#include <functional>
#include <memory>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/qt_screen.h"

namespace velmora::testing {

class QtHand {
  public:
    QtHand();

    /// Shows the form, runs the user's part once the window stands, and unloads the form afterwards. False when the
    /// show ended before the part had run to its end.
    bool show(screen::Form& form, const std::function<void()>& user);

    /// What takes the keyboard and the mouse for a control of the form on top.
    QWidget& widgetOf(const screen::Control& control) const;
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;
    void click(const screen::Control& control) const;
    void doubleClick(const screen::Control& control) const;
    /// Opens a list that has the focus.
    void openList(const screen::ComboBox& list) const;
    /// A key in the open list; Esc and Return close it.
    void inList(const screen::ComboBox& list, Qt::Key key) const;

  protected:
    std::unique_ptr<qt::QtScreen> screen_;
};

}  // namespace velmora::testing
