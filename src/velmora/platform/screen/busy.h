#pragma once
// Long work on a form: the hourglass, and the form disabled, until the work ends one way or another.

#include "velmora/platform/screen/screen.h"

namespace velmora::screen {

/// The pointer is the hourglass while this lives.
class Hourglass {
  public:
    explicit Hourglass(Screen& screen) : screen_(screen) { screen_.setPointer(Pointer::hourglass); }
    ~Hourglass() { screen_.setPointer(Pointer::normal); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    Screen& screen_;
};

/// The form is disabled while this lives, and enabled afterwards.
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
