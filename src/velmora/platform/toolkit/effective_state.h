#pragma once
// State of a control on the screen, after its frames and shared places have been taken into account.

#include <cstddef>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// Enabled itself and through its frames. The form's own state is not considered: fields of a disabled form take no
/// input but are not greyed.
bool looksEnabled(const screen::Control& control);

/// Whether the border of a field warns: not while nobody can enter anything there, as in the material of a hub that the
/// piece does not have.
bool looksWarned(const screen::Control& control);

/// State of a control's widget.
struct WidgetState {
    bool shown = true;
    bool keepsRoom = false;  ///< when hidden, its neighbours do not move
};

/// `enclosing`: frames whose widget contains the control's widget and therefore hides it already.
WidgetState widgetStateOf(const screen::Control& control, const std::vector<const screen::Frame*>& enclosing);

/// Whether the frame contains the control, directly or through another frame.
bool standsIn(const screen::Control& control, const screen::Frame& frame);

/// Whether anything in a node is visible: its control or one of its children.
bool isVisible(const screen::Layout& node);

/// Index of the shown child among children that share one place: the first visible one; their number when none is
/// visible.
std::size_t shownTurn(const screen::Layout& turns);

/// Whether the user can see the control: visible itself and through its frames, and not in a shared place where another
/// child is shown. A control outside the form's layout is seen when it is visible.
bool isSeen(const screen::Control& control);

}  // namespace velmora::toolkit
