#pragma once
// The font of windows and papers.

#include <QFont>

namespace velmora::painting {

/// 9 points, with digits of one width. Needs the toolkit's application (Graphics).
QFont baseFont();

}  // namespace velmora::painting
