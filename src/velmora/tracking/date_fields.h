#pragma once
// The date fields of the tracking form.

#include "velmora/platform/session/kestra_util.h"

namespace velmora::tracking {

inline constexpr const char* dateMask = "dd/mm/yyyy";

/// On LostFocus: a text of 6 to 8 characters that is a date is shown as one; any other text is cleared.
void leaveDateField(session::KestraUtil& oUtil, screen::TextBox& box);

}  // namespace velmora::tracking
