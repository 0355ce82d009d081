#pragma once
// The list handed to the host's spreadsheet component.

#include "velmora/platform/desk.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Exports the rows of the list; nothing without rows. The form is disabled and the pointer waits meanwhile. No error
/// leaves it and no message is shown, whether it succeeds or not; the current row stays.
void cmdExcel_Click(TrackingFields& fields, const platform::Desk& desk);

}  // namespace velmora::tracking
