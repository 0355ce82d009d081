#pragma once
// The entries of the registry by which a host finds the class: written for the machine, or for the user alone where the
// machine's part is closed to him, and removed again without a trace.

#include <string>

#include "velmora/adapters/com/com_headers.h"

namespace velmora::component {

/// A place where classes are registered.
struct ClassesPlace {
    HKEY hive = nullptr;
    std::wstring folder;  ///< below the hive: "Software\\Classes"
};

/// The machine's place, which needs the rights of an administrator, and the user's own.
struct ClassesPlaces {
    ClassesPlace machine;
    ClassesPlace user;
};

/// The real ones.
ClassesPlaces systemPlaces();

/// Registers the DLL at `path`. After a success there is one registration: one that the user had alone is removed when
/// the machine gets it. Errors: the system's, and nothing has been written then.
HRESULT registerClass(const ClassesPlaces& places, const std::wstring& path) noexcept;

/// Removes what registerClass has written in either place; entries that the DLL of the other size shares stay while
/// that one is registered. Succeeds when there is nothing to remove. Errors: the system's, when something is left.
HRESULT unregisterClass(const ClassesPlaces& places) noexcept;

}  // namespace velmora::component
