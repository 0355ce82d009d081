#pragma once
// The colours that windows and papers share.

#include <QRgb>

namespace velmora::painting::colours {

inline constexpr QRgb text = 0xFF101418;
inline constexpr QRgb faintText = 0xFF5A6673;
inline constexpr QRgb accent = 0xFF1F5C99;

}  // namespace velmora::painting::colours
