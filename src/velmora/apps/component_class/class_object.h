#pragma once
// What the entry points of the DLL answer, but for its registration.

#include "velmora/apps/component_class/surroundings.h"

namespace velmora::component {

/// DllGetClassObject: the object that makes instances.
HRESULT classObject(const Module& module, REFCLSID wanted, REFIID interfaceId, void** out) noexcept;

/// DllCanUnloadNow: S_OK when neither an object of ours nor a lock on the class is held.
HRESULT canUnload() noexcept;

/// When the system unloads the DLL or ends the process: objects of the host are left as they are.
void leave() noexcept;

}  // namespace velmora::component
