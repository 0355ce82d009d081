#pragma once
// The icon as an image.

#include <QImage>
#include <array>

namespace velmora::icon {

/// The sides in pixels in which desktops ask for an icon.
inline constexpr std::array<int, 9> imageSizes{16, 22, 24, 32, 48, 64, 128, 256, 512};

/// A square with a transparent ground. Needs no application object of the toolkit.
QImage iconImage(int size);

}  // namespace velmora::icon
