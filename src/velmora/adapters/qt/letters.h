#pragma once
// The size of the letters in all windows.

namespace velmora::qt {

/// The points of the letters for those that the desktop is set to, and a percentage of the user's. Nine for the sizes
/// that desktops come with, which a dense form needs; larger ones grow in proportion.
double letterPoints(double desktopPoints, int percent);

/// Applies them to all windows, those that are open included. Needs the application.
void setLetterSize(int percent);

}  // namespace velmora::qt
