#pragma once
// Colours and measures of windows, shared by the toolkits that draw them. They are independent of the desktop's theme,
// because the colours of the fields carry meaning. Colours are 0xRRGGBB, measures pixels at 100 %.

#include <cstdint>

#include "velmora/platform/toolkit/layout_plan.h"

namespace velmora::toolkit::window_style {

using Rgb = std::uint32_t;

inline constexpr int unit = 6;        ///< the spacing inside a row
inline constexpr int rowGap = 4;      ///< between the lines of a group
inline constexpr int group = 8;       ///< between groups and at the edges
inline constexpr int captionGap = 2;  ///< between a field and a caption above it
inline constexpr int gridRow = 24;

inline constexpr Rgb window = 0xF2F4F6;
inline constexpr Rgb entered = 0xFFFFFF;
inline constexpr Rgb calculated = 0xE6ECF3;
inline constexpr Rgb focus = 0xFFFF00;
inline constexpr Rgb text = 0x101418;
inline constexpr Rgb caption = 0x2C353F;
inline constexpr Rgb faintText = 0x5A6673;
inline constexpr Rgb disabledText = 0x8A949E;  ///< on buttons
inline constexpr Rgb border = 0xA9B3BE;
inline constexpr Rgb rule = 0xDDE2E8;  ///< below the rows of a grid
inline constexpr Rgb focusBorder = 0x14181D;
inline constexpr Rgb warning = 0x8A4B00;        ///< words of a warning
inline constexpr Rgb warningBorder = 0xE8930C;  ///< of a field with a warning
inline constexpr Rgb accent = 0x1F5C99;
inline constexpr Rgb currentRow = 0xC9DFF5;
inline constexpr Rgb hover = 0xEAF1F8;
inline constexpr Rgb pressed = 0xCFD9E4;
inline constexpr Rgb groupBorder = 0xC6CED7;
inline constexpr Rgb groupGround = 0xFAFBFC;

/// The pixels of a kind of spacing.
constexpr int pixels(Spacing spacing) {
    switch (spacing) {
        case Spacing::caption:
            return captionGap;
        case Spacing::parts:
            return unit;
        case Spacing::lines:
            return rowGap;
        case Spacing::groups:
            break;
    }
    return group;
}

}  // namespace velmora::toolkit::window_style
