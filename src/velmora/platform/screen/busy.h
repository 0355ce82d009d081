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
