#pragma once
// What a work order calls its piece.

#include <string>

#include "velmora/platform/sql/recordset.h"

namespace velmora::tracking {

/// The description by the product type of the proposal on the current row of a set of DPI; empty for types that have
/// none. Numbers stand as the language shows them, a null as nothing.
std::string orderDescription(const sql::Recordset& proposal);

/// A value as it is joined to a text: null is nothing.
std::string joined(const sql::Value& value);

}  // namespace velmora::tracking
