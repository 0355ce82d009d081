#pragma once
// Guards for long work on a form: they show the hourglass and disable the form until the end of the scope, exceptions
// included.

#include "velmora/platform/screen/screen.h"

namespace velmora::screen {

/// Shows the hourglass during its lifetime.
class Hourglass {
  public:
    explicit Hourglass(Screen& screen) : screen_(screen) { screen_.setPointer(Pointer::hourglass); }
    ~Hourglass() { screen_.setPointer(Pointer::normal); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    Screen& screen_;
};

/// What is told while another user's lock is waited for.
inline constexpr const char* waitingForOtherUser = "Esperando a otro usuario…";

/// Shows the hourglass and tells what is under way during its lifetime.
class Waiting {
  public:
    Waiting(Screen& screen, std::string_view text) : screen_(screen), hourglass_(screen) { screen_.tellWork(text); }
    ~Waiting() { screen_.tellWork({}); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    Screen& screen_;
    Hourglass hourglass_;
};

/// Disables the form during its lifetime and enables it afterwards.
class Disabled {
  public:
    explicit Disabled(Form& form) : form_(form) { form_.setEnabled(false); }
    ~Disabled() { form_.setEnabled(true); }
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;

  private:
    Form& form_;
};

/// Both.
class Busy {
  public:
    Busy(Screen& screen, Form& form) : disabled_(form), hourglass_(screen) {}

  private:
    Disabled disabled_;
    Hourglass hourglass_;
};

}  // namespace velmora::screen
