#pragma once
// The colours that windows and papers share.

#include <QRgb>

#include "velmora/platform/toolkit/window_style.h"

namespace velmora::painting::colours {

inline constexpr QRgb text = 0xFF000000U | toolkit::window_style::text;
inline constexpr QRgb faintText = 0xFF000000U | toolkit::window_style::faintText;
inline constexpr QRgb accent = 0xFF000000U | toolkit::window_style::accent;

}  // namespace velmora::painting::colours
