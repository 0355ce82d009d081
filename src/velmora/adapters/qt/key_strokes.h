#pragma once
// Converts key events of the toolkit to key strokes of the core.

#include <QKeyEvent>

#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::qt {

using toolkit::KeyStroke;

KeyStroke strokeOf(const QKeyEvent& event);

}  // namespace velmora::qt
