#pragma once
// The icon as a scalable file.

#include <string>

namespace velmora::icon {

/// The text of an SVG document.
std::string iconSvg();

}  // namespace velmora::icon
