#pragma once
// Actions of the user on a form and their follow-up: focus, keyboard, errors.

#include <exception>
#include <functional>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// What a toolkit's window implements for the actions on its form.
class ActionWindow {
  public:
    virtual ~ActionWindow() = default;
    /// Shows the error to the user; returns when the user has closed the message.
    virtual void showError(std::exception_ptr error) = 0;
    /// Moves the keyboard focus to the control that has the focus in the model.
    virtual void moveKeyboard() = 0;
};

/// Runs the user's actions on one form. Actions nest: one can open a box in which the user continues. The outermost one
/// begins by removing the note of the action before from the status line. At its end, an active control that has been
/// hidden, covered or disabled meanwhile passes the focus on to the next stop of the tab order, then the keyboard focus
/// follows. Errors of an action and of each follow-up step are shown, and the program continues.
class UserActions {
  public:
    /// Form and window must outlive this object.
    UserActions(screen::Form& form, ActionWindow& window) : form_(form), window_(window) {}

    void run(const std::function<void()>& action);
    /// Inside an action: moves the focus to the control. False when the focus did not get there or did not stay.
    bool turnTo(screen::Control& control);

  private:
    void guarded(const std::function<void()>& action);
    void settle();

    screen::Form& form_;
    ActionWindow& window_;
    int depth_ = 0;
};

}  // namespace velmora::toolkit
