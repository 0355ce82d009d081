#pragma once
// The message box for an error that nothing of the logic has caught.

#include <exception>

#include "velmora/platform/screen/screen.h"

namespace velmora::toolkit {

/// A critical box with an OK button. A run-time error shows its number and description ("Error 13"), a negative number
/// also in hexadecimal as providers print it; any other exception shows as an internal error with its own text. `error`
/// must hold an exception.
screen::MessageBox errorBox(std::exception_ptr error);

}  // namespace velmora::toolkit
