#pragma once
// A bench for forms on real windows, on the offscreen platform: a form is shown, a script plays the user's hand.

#include <QTest>
#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/control_view.h"
#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/qt_screen.h"

namespace velmora::testing {

class QtBench : public ::testing::Test {
  protected:
    QtBench();

    /// Shows the form, runs the user's part once the window stands, and unloads the form afterwards.
    void play(screen::Form& form, const std::function<void()>& user);

    /// What the next box or window shows is looked at and answered; more than one may wait in line.
    void whenBoxOpens(const std::function<void(QWidget&)>& answer);

    QWidget& widgetOf(const screen::Control& control) const;
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;
    void click(const screen::Control& control) const;
    void doubleClick(const screen::Control& control) const;
    /// Opens a list that has the focus.
    void openList(const screen::ComboBox& list) const;
    /// A key in the open list; Esc and Return close it.
    void inList(const screen::ComboBox& list, Qt::Key key) const;

    std::unique_ptr<qt::QtScreen> screen_;
    std::vector<std::function<void(QWidget&)>> answers_;

  private:
    void lookForBox();
};

}  // namespace velmora::testing
