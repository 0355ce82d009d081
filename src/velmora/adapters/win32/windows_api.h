#pragma once
// The system's interface and its common controls, with wide texts and without its macros min and max.

#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>
// Uses the types of the header above.
#include <commctrl.h>
