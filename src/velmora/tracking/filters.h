#pragma once
// What the tracking list asks of the database: the filters, or the search by measures, turned into a condition, and the
// statement that the condition closes.

#include <string>

#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Whether the list is to hold what the filters ask for, or nothing.
enum class Listing { filtered, empty };

/// The condition and order of the filters as they stand. Nothing is checked: what a field holds goes into the text.
std::string filterCondition(const TrackingFields& fields, Listing listing);

/// The condition of the search by measures; it has no order. Errors: 6 for a measure beyond the numbers.
std::string measuresCondition(const TrackingFields& fields);

/// The statement of the list: the columns of the grid, then every column of a proposal.
std::string listStatement(const std::string& condition);

}  // namespace velmora::tracking
