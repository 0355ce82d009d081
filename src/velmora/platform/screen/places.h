#pragma once
// Which parts of a form's layout are on the screen: of groups that share one place only the first visible one is.

#include <cstddef>

#include "velmora/platform/screen/layout.h"

namespace velmora::screen {

/// Whether anything in a node is visible: its control or one of its children.
bool isVisible(const Layout& node);

/// Index of the shown child among children that share one place: the first visible one; their number when none is
/// visible.
std::size_t shownTurn(const Layout& turns);

/// The field of a layout that shows the control; nullptr when there is none.
const Layout* fieldOf(const Control& control, const Layout& layout);

/// Whether the user can see the control: visible itself and through its frames, and not in a shared place where another
/// child is shown. A control outside the form's layout is seen when it is visible.
bool isSeen(const Control& control);

}  // namespace velmora::screen
