#pragma once
// What the user does on a form, and what has to follow it.

#include <exception>
#include <functional>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// What a toolkit's window does for the actions on its form.
class ActionWindow {
  public:
    virtual ~ActionWindow() = default;
    /// Shows the error to the user; returns when he has seen it.
    virtual void showError(std::exception_ptr error) = 0;
    /// Puts the keyboard where the model has the focus.
    virtual void moveKeyboard() = 0;
};

/// Runs the user's actions on one form. Actions nest: one can open a box in which the user goes on. When the outermost
/// has ended, in this order: what was put off runs; an active control that has been hidden or disabled meanwhile gives
/// the focus on to the next stop of the tab order; the keyboard moves. An error of an action, and of each thing that
/// follows it, is shown, and the program goes on.
class UserActions {
  public:
    /// Form and window must outlive it.
    UserActions(screen::Form& form, ActionWindow& window) : form_(form), window_(window) {}

    void run(const std::function<void()>& action);
    /// Puts something off to the end of the outermost action; outside of one, to the end of the next.
    void afterwards(std::function<void()> task) { putOff_.push_back(std::move(task)); }
    /// Inside an action: the user turns to the control. False when the focus did not get there or did not stay.
    bool turnTo(screen::Control& control);

  private:
    void guarded(const std::function<void()>& action);
    void settle();

    screen::Form& form_;
    ActionWindow& window_;
    std::vector<std::function<void()>> putOff_;
    int depth_ = 0;
};

}  // namespace velmora::toolkit
