#pragma once
// Plan of a grid, and the parts that plans of boxes and grids share.

#include "velmora/platform/toolkit/layout_plan.h"

namespace velmora::toolkit {

/// True for a field with its caption before it.
bool isCaptionedField(const screen::Layout& node);

/// A field's caption in a cell; at the top when the field has several lines.
PlanCell captionCell(const screen::Layout& field);
/// A field's control in a cell: at full width when it grows, otherwise at its natural width.
PlanCell controlCell(const screen::Layout& field);

enum class AlignTop { no, yes };
/// Adds a node as the next cell of a box; a node without anything to show adds none. `alignTop`: a single field beside
/// something tall is aligned to the top.
void addToBox(LayoutPlan& box, const screen::Layout& node, AlignTop alignTop);

/// A node's children in the given number of columns, row by row. Each takes three columns of the plan: captions are
/// aligned in the first, controls in the second, units in the third.
LayoutPlan planGrid(const screen::Layout& node, int columns);

}  // namespace velmora::toolkit
