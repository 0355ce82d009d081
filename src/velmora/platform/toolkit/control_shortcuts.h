#pragma once
// Keys with Control: second names of function keys, buttons with a shortcut in their caption, and stepping through
// every field.

#include <optional>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

/// The function key that Control and a letter stand for on this form: S is F5, P is F8, F is F2. Only for a key that a
/// button or a field of the form names in its caption, "&Grabar (F5)"; nullopt otherwise.
std::optional<screen::Key> secondNameOf(const screen::Form& form, char32_t letter);

/// The button whose caption ends in "(Ctrl+N)" with this letter, in either case; nullptr when there is none that can be
/// pressed now.
screen::Button* buttonWithShortcut(const screen::Form& form, char32_t letter);

/// Moves the focus to the next or previous control of the tab order that can take it and is on the screen, also to one
/// that is no tab stop. No move when there is none. Errors: those of the fields' events.
void moveToEveryField(screen::Form& form, bool backward);

}  // namespace velmora::toolkit
