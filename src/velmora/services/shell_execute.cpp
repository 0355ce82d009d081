#include "velmora/services/shell_execute.h"

#include <algorithm>
#include <array>
#include <string>

#include "velmora/platform/runtime/errors.h"

namespace velmora::services {

namespace {

struct Failure {
    int code;
    long number;
    const char* text;
};

/// The highest code that means a failure.
constexpr int lastFailure = 32;

/// The first of an application's own error numbers.
constexpr long ownErrors = static_cast<int>(0x80040000u) + 1048;

// Chosen C-181: a failure for which the language has an error number is raised with it; the others are numbered from
// the application's first.
constexpr std::array failures{
    Failure{0, 7, "Out of memory"},
    Failure{2, 53, "File not found"},
    Failure{3, 76, "Path not found"},
    Failure{5, 75, "Path/file access error"},
    Failure{8, 7, "Out of memory"},
    Failure{11, ownErrors + 11, "The executable file is invalid or corrupt"},
    Failure{26, ownErrors + 26, "A sharing violation occurred."},
    Failure{27, ownErrors + 27, "This file type does not have a valid file association."},
    Failure{28, ownErrors + 28, "The file could not be opened due to time out.  Please try again in a moment."},
    Failure{29, ownErrors + 29,
            "The file could not be opened because the DDE transaction failed.  Please try again in a moment."},
    Failure{30, ownErrors + 30,
            "The file could not be opened because the target application is busy.  Please try again in a moment."},
    Failure{31, ownErrors + 31, "No application is associated with this file type."},
    Failure{32, ownErrors + 32, "The specified dynamic-link library was not found."},
};

// Kept K-180: "occurred" is there twice. Required as it is; users read this text.
constexpr const char* anyOther = "An error occurred occurred whilst trying to open or print the selected file.";

[[noreturn]] void fail(int code) {
    const auto* known = std::ranges::find(failures, code, &Failure::code);
    if (known == failures.end()) {
        throw runtime::RuntimeError(ownErrors + code, anyOther, "VELMORA.GShell");
    }
    throw runtime::RuntimeError(known->number, known->text, "VELMORA.GShell");
}

}  // namespace

void ShellEx(system::Services& services, std::string_view path) {
    // When the call fails inside the trap, the code stays 0, which means lack of memory.
    int code = 0;
    runtime::ErrorTrap trap;
    trap([&] { code = services.openWithAssociatedProgram(path); });
    if (code >= 0 && code <= lastFailure) {
        fail(code);
    }
}

}  // namespace velmora::services
