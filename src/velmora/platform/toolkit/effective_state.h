#pragma once
// What holds for a control on the screen, through its frames and the places that frames share.

#include <cstddef>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// Enabled by itself and by its frames. The form's own state is left out: a disabled form takes no input, yet its
/// fields keep their looks.
bool looksEnabled(const screen::Control& control);

/// How the widget of a control stands.
struct Standing {
    bool shown = true;
    bool keepsRoom = false;  ///< while it is not shown its neighbours stay where they are
};

/// `enclosing`: frames whose own widget lies around the control's and hides it by itself.
Standing standingOf(const screen::Control& control, const std::vector<const screen::Frame*>& enclosing);

/// Whether the control stands in the frame, itself or through another frame.
bool standsIn(const screen::Control& control, const screen::Frame& frame);

/// Whether anything of a node is visible: its control, or one of its children.
bool isVisible(const screen::Layout& node);

/// Which of the children that share one place is shown: the first visible one, by its position; their number when none
/// is.
std::size_t shownTurn(const screen::Layout& turns);

/// Whether a person sees the control: visible by itself and through its frames, and not at a place whose turn another
/// has. A control that the form's layout does not hold is seen when it is visible.
bool isSeen(const screen::Control& control);

}  // namespace velmora::toolkit
