#pragma once
// The parts of a layout's plan that boxes and grids share, and the plan of a grid.

#include "velmora/platform/toolkit/layout_plan.h"

namespace velmora::toolkit {

/// A field whose caption stands before it.
bool isCaptionedField(const screen::Layout& node);

/// A field's caption in a cell; beside a text of several lines it stands at the top.
PlanCell captionCell(const screen::Layout& field);
/// A field's control in a cell: it fills it where it grows, else it is as wide as it is by itself.
PlanCell controlCell(const screen::Layout& field);

enum class AlignTop { no, yes };
/// A node as the next cell of a box; a node that has nothing to show adds none. `alignTop`: a single field beside
/// something tall stands at the top.
void addToBox(LayoutPlan& box, const screen::Layout& node, AlignTop alignTop);

/// A node's children in so many columns, row by row. Each takes three columns of the plan: captions line up in the
/// first, controls in the second, units in the third.
LayoutPlan planGrid(const screen::Layout& node, int columns);

}  // namespace velmora::toolkit
