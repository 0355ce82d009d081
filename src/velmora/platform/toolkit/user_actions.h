#pragma once
// What the user does on a form, and what has to follow it.

#include <exception>
#include <functional>

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
/// has ended, an active control that has been hidden or disabled meanwhile gives the focus on to the next stop of the
/// tab order, then the keyboard moves. An error of an action, and of each thing that follows it, is shown, and the
/// program goes on.
class UserActions {
  public:
    /// Form and window must outlive it.
    UserActions(screen::Form& form, ActionWindow& window) : form_(form), window_(window) {}

    void run(const std::function<void()>& action);
    /// Inside an action: the user turns to the control. False when the focus did not get there or did not stay.
    bool turnTo(screen::Control& control);

  private:
    void guarded(const std::function<void()>& action);
    void settle();

    screen::Form& form_;
    ActionWindow& window_;
    int depth_ = 0;
};

}  // namespace velmora::toolkit
