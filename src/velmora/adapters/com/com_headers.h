#pragma once
// The system's headers for COM, without the macros that collide with names of the standard library.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <dispex.h>
#include <oaidl.h>
#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

// Interfaces of COM have no destructor in their tables: objects are destroyed by Release of the class that implements
// them.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
