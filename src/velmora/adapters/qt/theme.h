#pragma once
// Colours, fonts and measures of all windows. They are independent of the desktop's theme, because the colours of the
// fields carry meaning.

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QWidget>

#include "velmora/adapters/painting/colours.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"

namespace velmora::qt::theme {

inline constexpr int unit = 6;          ///< the spacing inside a row
inline constexpr int rowGap = 4;        ///< between the lines of a group
inline constexpr int group = 2 * unit;  ///< between groups and at the edges
inline constexpr int gridRow = 24;

inline constexpr QRgb window = 0xFFF2F4F6;
inline constexpr QRgb entered = 0xFFFFFFFF;
inline constexpr QRgb calculated = 0xFFE6ECF3;
inline constexpr QRgb focus = 0xFFFFFF00;
inline constexpr QRgb text = painting::colours::text;
inline constexpr QRgb caption = 0xFF2C353F;
inline constexpr QRgb faintText = painting::colours::faintText;
inline constexpr QRgb border = 0xFFA9B3BE;
inline constexpr QRgb rule = 0xFFDDE2E8;
inline constexpr QRgb focusBorder = 0xFF14181D;
inline constexpr QRgb accent = painting::colours::accent;
inline constexpr QRgb currentRow = 0xFFC9DFF5;

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
