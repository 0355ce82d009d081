#pragma once
// Colours and pens of technical drawings, shared by all toolkits and the printed sheet. Colours are 0xRRGGBB.

#include <array>
#include <cstdint>
#include <span>

#include "velmora/platform/screen/drawing.h"

namespace velmora::toolkit::sketch_style {

using Rgb = std::uint32_t;

inline constexpr Rgb ink = 0x1B232C;
inline constexpr Rgb dimensionInk = 0x1F5C99;
inline constexpr Rgb axisInk = 0xB0413E;
inline constexpr Rgb metal = 0xDCE4EC;
inline constexpr Rgb sectionMetal = 0xE9EEF4;
inline constexpr Rgb hatchInk = 0x8C9AAA;
inline constexpr Rgb background = 0xFFFFFF;

inline constexpr double hatchWidth = 0.8;

struct PenStyle {
    Rgb color = ink;
    double width = 0;                     ///< pixels
    std::span<const double> dashes = {};  ///< stroke, gap, stroke … in multiples of the pen width; empty: solid
};

inline constexpr std::array<double, 4> chain{14, 4, 2, 4};
inline constexpr std::array<double, 2> dashed{6, 4};

constexpr PenStyle styleOf(screen::Pen pen) {
    switch (pen) {
        case screen::Pen::outline:
            return {.color = ink, .width = 1.8};
        case screen::Pen::thin:
            return {.color = ink, .width = 0.9};
        case screen::Pen::centre:
            return {.color = axisInk, .width = 0.9, .dashes = chain};
        case screen::Pen::hidden:
            return {.color = ink, .width = 0.9, .dashes = dashed};
        case screen::Pen::dimension:
            break;
    }
    return {.color = dimensionInk, .width = 0.9};
}

}  // namespace velmora::toolkit::sketch_style
