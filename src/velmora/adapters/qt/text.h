#pragma once
// Texts between the model (UTF-8) and the toolkit, under the names that this room uses.

#include "velmora/adapters/painting/text.h"

namespace velmora::qt {

using painting::fromQt;
using painting::toQt;

}  // namespace velmora::qt
