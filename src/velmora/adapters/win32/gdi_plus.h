#pragma once
// The system's library for smooth lines. Its header uses min and max without naming where they come from.

#include <algorithm>

#include "velmora/adapters/win32/windows_api.h"

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>
