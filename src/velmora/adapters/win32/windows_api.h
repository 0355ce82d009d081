#pragma once
// The system's interface, with wide texts and without its macros min and max.

#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>
