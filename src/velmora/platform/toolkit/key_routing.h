#pragma once
// The road of a key: the tab order, the form, then the control that has the focus.

#include <functional>

#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// What the control that has the focus does with a key that the form has let through. False leaves the key to the
/// toolkit's own widget.
using ControlKeys = std::function<bool(const KeyStroke&)>;

/// Takes one key along its road. True when it is used up; false when the toolkit's own widget may have it.
///
/// 1. While the form is disabled or unloaded the key is used up and nobody sees it.
/// 2. Tab moves the focus in the tab order, with Shift backwards. The form does not see it.
/// 3. The form's KeyDown sees the key and may turn it into another or swallow it. A key that it turned into Tab moves
///    the focus. One during which the focus moved or the form was unloaded is used up.
/// 4. The control sees what the key has become, with the character that belongs to it.
///
/// Errors of the handlers pass through.
bool routeKey(screen::Form& form, const KeyStroke& stroke, const ControlKeys& control);

}  // namespace velmora::toolkit
