#pragma once
// A key of the toolkit as the core takes it.

#include <QKeyEvent>

#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::qt {

using toolkit::KeyStroke;

KeyStroke strokeOf(const QKeyEvent& event);

}  // namespace velmora::qt
