#pragma once
// The date fields of the tracking form.

#include "velmora/platform/session/kestra_util.h"

namespace velmora::tracking {

inline constexpr const char* dateMask = "dd/mm/yyyy";

/// On LostFocus: a text of 6 to 8 characters is shown as a date where it is one, any other is thrown away.
void leaveDateField(session::KestraUtil& oUtil, screen::TextBox& box);

}  // namespace velmora::tracking
