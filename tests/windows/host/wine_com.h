#pragma once
// Wine's headers for COM in a program of this system (Winelib): the calling convention of Windows, UTF-16 as char16_t.

#ifndef NOMINMAX
#define NOMINMAX
#endif

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wpedantic"
#include <oaidl.h>
#include <objbase.h>
#include <oleauto.h>
#include <windows.h>
#pragma GCC diagnostic pop
#undef MessageBox  // the name of a type of the core

// Interfaces of COM have no destructor in their tables.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
