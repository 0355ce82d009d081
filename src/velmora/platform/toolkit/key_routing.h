#pragma once
// How a key is routed: the tab order, the form, then the control with the focus.

#include <functional>

#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// Handles a key that the form has let through, for the control with the focus. False leaves the key to the toolkit's
/// own widget.
using ControlKeys = std::function<bool(const KeyStroke&)>;

/// Routes one key. True when it is consumed; false when the toolkit's own widget may have it.
///
/// 1. While the form is disabled or unloaded the key is consumed without any handler being called.
/// 2. A key with Control is a second name of a function key, a button's shortcut or, with Enter, a step to every field,
///    calculated ones included (`control_shortcuts.h`); any other is not consumed. The form's KeyDown is not called,
///    but for a second name.
/// 3. Tab moves the focus in the tab order, with Shift backwards. The form's KeyDown is not called.
/// 4. The form's KeyDown may replace the key or discard it. A key replaced by Tab moves the focus. A key is consumed
///    when the focus moved or the form was unloaded meanwhile.
/// 5. The control receives the resulting key with its character.
///
/// Errors of the handlers propagate.
bool routeKey(screen::Form& form, const KeyStroke& stroke, const ControlKeys& control);

}  // namespace velmora::toolkit
