#pragma once
// Exports the list to the host's spreadsheet component.

#include "velmora/platform/desk.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Exports the rows of the list; does nothing without rows. Meanwhile the form is disabled and the pointer is the
/// hourglass. Raises no error and shows no message, whether it succeeds or not; the current row does not change.
void cmdExcel_Click(TrackingFields& fields, const platform::Desk& desk);

}  // namespace velmora::tracking
