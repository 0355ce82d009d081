#pragma once
// The query of the tracking list: the filters or the search by measures as a condition, and the statement that ends
// with the condition.

#include <string>

#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Whether the list holds the rows that match the filters, or none.
enum class Listing { filtered, empty };

/// Condition and order for the current filters. Nothing is validated: a field's text is inserted unchanged.
std::string filterCondition(const TrackingFields& fields, Listing listing);

/// The condition of the search by measures; it has no order. Errors: 6 for a measure too large for a number.
std::string measuresCondition(const TrackingFields& fields);

/// The statement of the list: the columns of the grid, then every column of a proposal.
std::string listStatement(const std::string& condition);

}  // namespace velmora::tracking
