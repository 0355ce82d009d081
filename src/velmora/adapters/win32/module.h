#pragma once
// The module (program or DLL) that this code is part of, and what the system needs to know of it while windows are
// created.

#include "velmora/adapters/win32/windows_api.h"

namespace velmora::win32 {

HINSTANCE ownModule();

/// Name of the class of all our own windows, registered on first use.
const wchar_t* windowClass();

/// While it lives, windows are created with the controls that the module's manifest (resource 2) asks for, whatever the
/// program asks for, and scaled by their monitor. Without such a manifest, or on a system without scaling by monitor,
/// the program's own settings remain.
class CreationScope {
  public:
    CreationScope();
    ~CreationScope();
    CreationScope(const CreationScope&) = delete;
    CreationScope& operator=(const CreationScope&) = delete;

  private:
    ULONG_PTR cookie_ = 0;
    void* awareness_ = nullptr;
};

/// The scale of the monitor a window is on, in dots per inch; for nullptr that of the main monitor.
int dpiOf(HWND window);

}  // namespace velmora::win32
