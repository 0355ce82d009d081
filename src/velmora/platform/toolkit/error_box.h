#pragma once
// The message box for an error that no handler has caught.

#include <exception>

#include "velmora/platform/screen/screen.h"

namespace velmora::toolkit {

/// A critical box with an OK button. A run-time error is shown with number and description ("Error 13"), a negative
/// number also in hexadecimal as data providers print it; any other exception is shown as an internal error with its
/// own text. `error` must hold an exception.
screen::MessageBox errorBox(std::exception_ptr error);

}  // namespace velmora::toolkit
