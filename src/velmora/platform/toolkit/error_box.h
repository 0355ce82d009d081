#pragma once
// The message box for an error that no handler has caught: words first, the number last, and what can be done next.

#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/screen/screen.h"

namespace velmora::toolkit {

/// The parts of an error, for a toolkit that sets the number in small letters and offers buttons of its own.
struct ErrorReport {
    std::string words;                  ///< what happened, in Spanish
    std::string number;                 ///< "Error 13"; empty for an internal error
    std::string details;                ///< all that is known, in lines, to be copied and passed on
    std::optional<std::string> folder;  ///< where a file that the words name lies
};

/// Buttons of an error box besides OK; they leave it open.
inline constexpr std::string_view copyDetailsCaption = "&Copiar detalles";
inline constexpr std::string_view openFolderCaption = "Abrir la car&peta";

/// A run-time error has its number, a negative one also in hexadecimal as data providers print it; any other exception
/// is an internal error with its own text. `error` must hold an exception.
ErrorReport errorReport(std::exception_ptr error);

/// The same as a critical box with an OK button: the words, then the number in a line of its own.
screen::MessageBox errorBox(std::exception_ptr error);

/// The folder of the first file or folder that a line of the text names by its whole path; nullopt for none.
std::optional<std::string> folderNamedIn(const std::string& text);

}  // namespace velmora::toolkit
