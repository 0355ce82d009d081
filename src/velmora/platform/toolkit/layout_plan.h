#pragma once
// A layout resolved into boxes and grids: alignment of captions, stretching, spacing. A toolkit maps it one to one to
// its own layouts.

#include <vector>

#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

/// Kinds of spacing; the toolkit's style determines the pixels of each.
enum class Spacing {
    caption,  ///< between a field and a caption above it
    parts,    ///< between parts side by side
    lines,    ///< between the lines of a group
    groups,   ///< between groups, and between other tall parts
};

enum class Alignment {
    fill,
    top,        ///< full width, aligned to the top
    centre,     ///< full width, vertically centred
    leftTop,    ///< natural width, aligned to the top
    leftCentre  ///< natural width, vertically centred
};

struct PlanCell;

/// `Cell` is PlanCell. A template, because clang takes `cells = {}` only once the type of a cell is complete.
template <class Cell>
struct PlanOfCells {
    enum class Kind {
        nothing,
        control,  ///< of the field `node`
        caption,  ///< of the field `node`: its label, or its fixed text
        unit,     ///< of the field `node`
        space,    ///< remaining space
        box,      ///< cells side by side or one below the other
        grid,     ///< cells in rows and columns; parts without a cell of their own span several columns
        turns,    ///< pages in one place: only that of the first visible child of `node` is shown
        group,    ///< the frame of `node` around one cell or none; a second cell stands at the right of its title
    };

    Kind kind = Kind::nothing;
    const screen::Layout* node = nullptr;
    bool horizontal = false;              ///< for a box
    Spacing spacing = Spacing::parts;     ///< between the cells of a box or the lines of a grid
    std::vector<Cell> cells = {};         ///< of a box, grid or group; the pages of a shared place
    std::vector<int> columnStretch = {};  ///< for a grid, by column: share of the remaining width
    std::vector<int> rowStretch = {};     ///< for a grid, by row: share of the remaining height
    /// A page of a shared place: whether its frame, or the label of its caption, is shown depends on the place and not
    /// on its own visibility.
    bool shownByTurn = false;
};

using LayoutPlan = PlanOfCells<PlanCell>;

struct PlanCell {
    LayoutPlan part;
    Alignment alignment = Alignment::fill;
    int stretch = 0;  ///< in a box: share of the remaining space
    int row = 0;      ///< in a grid
    int column = 0;
    int columnSpan = 1;
    bool indented = false;  ///< a caption after another column: separated by Spacing::parts
};

/// The plan of a layout tree. It refers to the tree's nodes, which must outlive it and not move.
LayoutPlan planOf(const screen::Layout& tree);

}  // namespace velmora::toolkit
