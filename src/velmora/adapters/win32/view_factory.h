#pragma once
// Creates the view for a control.

#include <memory>

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

/// For a node of the layout that holds a control.
std::unique_ptr<ControlView> makeView(ViewHost& host, const screen::Layout& layout);

}  // namespace velmora::win32
