#pragma once
// Colours, fonts and measures of all windows. They are independent of the desktop's theme, because the colours of the
// fields carry meaning.

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QWidget>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"
#include "velmora/platform/toolkit/window_style.h"

namespace velmora::qt::theme {

namespace style = toolkit::window_style;

using style::captionGap;
using style::gridRow;
using style::group;
using style::rowGap;
using style::unit;

constexpr QRgb opaque(style::Rgb color) {
    return 0xFF000000U | color;
}

inline constexpr QRgb window = opaque(style::window);
inline constexpr QRgb entered = opaque(style::entered);
inline constexpr QRgb calculated = opaque(style::calculated);
inline constexpr QRgb focus = opaque(style::focus);
inline constexpr QRgb text = opaque(style::text);
inline constexpr QRgb caption = opaque(style::caption);
inline constexpr QRgb faintText = opaque(style::faintText);
inline constexpr QRgb disabledText = opaque(style::disabledText);
inline constexpr QRgb border = opaque(style::border);
inline constexpr QRgb rule = opaque(style::rule);
inline constexpr QRgb focusBorder = opaque(style::focusBorder);
inline constexpr QRgb warning = opaque(style::warning);
inline constexpr QRgb warningBorder = opaque(style::warningBorder);
inline constexpr QRgb accent = opaque(style::accent);
inline constexpr QRgb currentRow = opaque(style::currentRow);
inline constexpr QRgb hover = opaque(style::hover);
inline constexpr QRgb pressed = opaque(style::pressed);
inline constexpr QRgb groupBorder = opaque(style::groupBorder);
inline constexpr QRgb groupGround = opaque(style::groupGround);

/// Applies style, palette and font to the whole application. Once, before the first window.
void apply(QApplication& application);

QFont totalFont();
QFont titleFont();

/// A colour of the model.
QColor fromModel(screen::Color color);

/// Sets the background of a field by its ground (toolkit::groundOf) and its text to the model's colour, enabled or not.
/// Does nothing when the palette already has both.
void paintField(QWidget& field, const screen::Control& control, screen::Role role);

}  // namespace velmora::qt::theme
