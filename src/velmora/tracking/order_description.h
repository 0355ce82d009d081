#pragma once
// The description of the piece in a work order.

#include <string>

#include "velmora/platform/sql/recordset.h"

namespace velmora::tracking {

/// The description, by product type, of the proposal on the current row of a set of DPI; empty for types that have
/// none. Numbers are in the language's default form, a null is an empty text.
std::string orderDescription(const sql::Recordset& proposal);

/// A value for concatenation: null is an empty text.
std::string joined(const sql::Value& value);

}  // namespace velmora::tracking
