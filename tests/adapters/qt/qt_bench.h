#pragma once
// A bench for forms on real windows, on the offscreen platform: a form is shown, a script plays the user's hand.

#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/control_view.h"

#include "qt_hand.h"

namespace velmora::testing {

class QtBench : public ::testing::Test, protected QtHand {
  protected:
    /// Shows the form, runs the user's part once the window stands, and unloads the form afterwards.
    void play(screen::Form& form, const std::function<void()>& user);

    /// What the next box or window shows is looked at and answered; more than one may wait in line.
    void whenBoxOpens(const std::function<void(QWidget&)>& answer);

    std::vector<std::function<void(QWidget&)>> answers_;

  private:
    void lookForBox();
};

}  // namespace velmora::testing
