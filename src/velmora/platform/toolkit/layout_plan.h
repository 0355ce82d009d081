#pragma once
// A layout worked out into boxes and grids: which caption lines up with which, what stretches, what is aligned how. A
// toolkit turns it into its own layouts one to one.

#include <vector>

#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

/// Distances; how many pixels each is belongs to the toolkit's looks.
enum class Spacing {
    caption,  ///< between a field and a caption above it
    parts,    ///< between things side by side
    lines,    ///< between the lines of a group
    groups,   ///< between groups, and between anything tall
};

enum class Alignment {
    fill,
    top,        ///< as wide as there is room, at the upper edge
    centre,     ///< as wide as there is room, in the middle of its height
    leftTop,    ///< as wide as it is by itself
    leftCentre  ///< likewise, in the middle of its height
};

struct PlanCell;

struct LayoutPlan {
    enum class Kind {
        nothing,
        control,  ///< of the field `node`
        caption,  ///< of the field `node`: its label, or its fixed text
        unit,     ///< of the field `node`
        space,    ///< room that is left over
        box,      ///< cells side by side, or one below the other
        grid,     ///< cells at rows and columns; parts without a cell of their own span several columns
        turns,    ///< pages at one place: that of the first visible child of `node` is shown, none when there is none
        group,    ///< the frame of `node` around one cell, or none
    };

    Kind kind = Kind::nothing;
    const screen::Layout* node = nullptr;
    bool horizontal = false;              ///< of a box
    Spacing spacing = Spacing::parts;     ///< between the cells of a box, the lines of a grid
    std::vector<PlanCell> cells = {};     ///< of a box, grid, group; the pages of turns
    std::vector<int> columnStretch = {};  ///< of a grid, by column: shares of the width that is left over
    std::vector<int> rowStretch = {};     ///< of a grid, by row: shares of the height that is left over
    /// A page of turns: its frame, or its caption's label, is shown by its turn and not by its own visibility.
    bool shownByTurn = false;
};

struct PlanCell {
    LayoutPlan part;
    Alignment alignment = Alignment::fill;
    int stretch = 0;  ///< in a box: share of the room that is left over
    int row = 0;      ///< in a grid
    int column = 0;
    int columnSpan = 1;
    bool indented = false;  ///< a caption that follows another column: set off by Spacing::parts
};

/// The plan of a tree. It refers to the tree's nodes, which must stay where they are.
LayoutPlan planOf(const screen::Layout& tree);

}  // namespace velmora::toolkit
