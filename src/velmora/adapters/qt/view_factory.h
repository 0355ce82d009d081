#pragma once
// Creates the view for a control.

#include <memory>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

/// For a node of the layout that holds a control.
std::unique_ptr<ControlView> makeView(ViewHost& host, const screen::Layout& layout, QWidget* parent);

}  // namespace velmora::qt
