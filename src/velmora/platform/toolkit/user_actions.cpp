#include "velmora/platform/toolkit/user_actions.h"

#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::toolkit {

void UserActions::run(const std::function<void()>& action) {
    if (depth_ == 0) {
        form_.status().clearNote();
    }
    ++depth_;
    guarded(action);
    --depth_;
    if (depth_ == 0) {
        settle();
    }
}

bool UserActions::turnTo(screen::Control& control) {
    form_.moveFocus(control);
    return form_.activeControl() == &control && control.canTakeFocus();
}

// The error is shown after the handler has been left, because the message box runs an event loop.
void UserActions::guarded(const std::function<void()>& action) {
    std::exception_ptr error;
    try {
        action();
    } catch (...) {
        error = std::current_exception();
    }
    if (error) {
        window_.showError(error);
    }
}

void UserActions::settle() {
    ++depth_;
    const screen::Control* active = form_.activeControl();
    if (active != nullptr && form_.takesInput() && !(active->canTakeFocus() && isSeen(*active))) {
        guarded([this] { form_.tabForward(); });
    }
    --depth_;
    window_.moveKeyboard();
}

}  // namespace velmora::toolkit
