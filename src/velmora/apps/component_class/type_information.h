#pragma once
// The description of the class for hosts that ask for it, from the type library inside the DLL (resource 1).

#include <string>

#include "velmora/adapters/com/com_headers.h"

namespace velmora::component {

/// The path of the DLL's file. A path that begins with "\\?\" and a drive's letter is given without that beginning,
/// which not every program takes.
std::wstring pathOf(HINSTANCE__* module);

/// The description of the class or of its interface. Errors: those of the system when the DLL has no type library.
HRESULT typeInformation(HINSTANCE__* module, REFGUID id, ITypeInfo** out) noexcept;

}  // namespace velmora::component
