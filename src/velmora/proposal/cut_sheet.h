#pragma once
// Printing: passes the proposal's number to the printing component, which reads the database itself.

#include "velmora/estimate/field_map.h"
#include "velmora/platform/desk.h"
#include "velmora/proposal/form_controls.h"

namespace velmora::proposal {

/// Prints the proposal on the form as last saved; does nothing without number or date, or while the print button is
/// disabled. Errors: 429 when the component is missing; the component's own.
void msHojaCorte(const estimate::FieldMap& fields, const FormControls& controls, session::Session& session,
                 const platform::Desk& desk);

}  // namespace velmora::proposal
