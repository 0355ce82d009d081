#pragma once
// What was found as rows of a grid.

#include <vector>

#include "velmora/finding/proposal_finder.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::finding {

/// A set in memory with a row for each proposal: its number first, then what `foundColumns` shows.
sql::Recordset foundRows(const Found& found);

/// The columns of a grid over such a set; the first has a button in each cell.
std::vector<screen::GridColumn> foundColumns();

/// What was found, in one sentence: how many, or that there is none, and whether older ones were left out.
std::string foundSentence(const Found& found, const Wanted& wanted);

}  // namespace velmora::finding
