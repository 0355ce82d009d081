#include "velmora/platform/toolkit/grid_plan.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/toolkit/layout_captions.h"
#include "velmora/platform/toolkit/layout_nature.h"

namespace velmora::toolkit {

namespace {

using screen::Layout;
using Kind = Layout::Kind;
using Part = LayoutPlan::Kind;

/// A column of the layout is three columns of the plan: caption, control, unit.
constexpr int parts = 3;

bool isTurnOfFields(const Layout& node) {
    return node.kind == Kind::takeTurns && std::ranges::all_of(node.children, isCaptionedField);
}

bool beginsWithCaption(const Layout& node) {
    return node.kind == Kind::row && !node.children.empty() && isCaptionedField(node.children.front());
}

/// Position of a child in the grid.
struct CellPlace {
    int row = 0;
    int column = 0;  ///< the first of its three
    int span = parts;
};

class GridPlanner {
  public:
    GridPlanner(const Layout& node, int columns) : node_(node), columns_(columns) {
        grid_.columnStretch.assign(static_cast<std::size_t>(columns * parts + 1), 0);
        const int rows = (static_cast<int>(node.children.size()) + columns - 1) / columns;
        grid_.rowStretch.assign(static_cast<std::size_t>(rows + 1), 0);
        grid_.spacing = std::ranges::any_of(node.children, isTall) ? Spacing::groups : Spacing::lines;
    }

    LayoutPlan plan() {
        int index = 0;
        for (const Layout& child : node_.children) {
            const CellPlace place{
                .row = index / columns_, .column = index % columns_ * parts, .span = columns_ == 1 ? parts + 1 : parts};
            ++index;
            stretch(child, place);
            add(child, place);
        }
        leaveRoomOver();
        return std::move(grid_);
    }

  private:
    void stretch(const Layout& child, const CellPlace& place) {
        if (child.kind == Kind::space || growsDownward(child)) {
            grid_.rowStretch[static_cast<std::size_t>(place.row)] = std::max(child.stretch, 1);
        }
        if (child.kind != Kind::space && growsSideways(child)) {
            grid_.columnStretch[static_cast<std::size_t>(place.column + 1)] = 1;
        }
    }

    // Where nothing grows, the remaining space stays at the right, and at the bottom unless the rows share it.
    void leaveRoomOver() {
        const auto none = [](const std::vector<int>& stretches) {
            return std::ranges::all_of(stretches, [](int s) { return s == 0; });
        };
        if (none(grid_.columnStretch)) {
            grid_.columnStretch.back() = 1;
        }
        if (none(grid_.rowStretch) && node_.spread) {
            std::ranges::fill(grid_.rowStretch.begin(), grid_.rowStretch.end() - 1, 1);
        } else if (none(grid_.rowStretch)) {
            grid_.rowStretch.back() = 1;
        }
    }

    void add(const Layout& child, const CellPlace& place) {
        if (child.kind == Kind::space) {
            return;
        }
        if (isTurnOfFields(child)) {
            addTurns(child, place);
        } else if (child.kind == Kind::field && !child.captionAbove) {
            addField(child, place);
        } else if (beginsWithCaption(child)) {
            addRow(child, place);
        } else if (LayoutPlan part = planOf(child); part.kind != Part::nothing) {
            put({.part = std::move(part)}, place.row, place.column, place.span);
        }
    }

    void addField(const Layout& field, const CellPlace& place) {
        if (!hasCaption(field) && (speaksForItself(field) || growsDownward(field))) {
            put(controlCell(field), place.row, place.column, place.span);
            return;
        }
        if (hasCaption(field)) {
            putCaption(field, place);
        }
        const bool unit = !field.unit.empty();
        // A growing field also spans the columns after it, so that its edge is aligned with that of the group.
        put(controlCell(field), place.row, place.column + 1, !unit && growsSideways(field) ? place.span - 1 : 1);
        if (unit) {
            put({.part = {.kind = Part::unit, .node = &field}, .alignment = Alignment::leftCentre}, place.row,
                place.column + 2, 1);
        }
    }

    // In a row that begins with a captioned field, that caption is aligned with those above and below.
    void addRow(const Layout& row, const CellPlace& place) {
        const Layout& first = row.children.front();
        putCaption(first, place);
        LayoutPlan rest{.kind = Part::box, .horizontal = true};
        PlanCell control = controlCell(first);
        control.stretch = growsSideways(first) ? 1 : first.stretch;
        rest.cells.push_back(std::move(control));
        if (!first.unit.empty()) {
            rest.cells.push_back({.part = {.kind = Part::unit, .node = &first}});
        }
        for (std::size_t i = 1; i < row.children.size(); ++i) {
            addToBox(rest, row.children[i], AlignTop::no);
        }
        if (!growsSideways(row)) {
            rest.cells.push_back({.part = {.kind = Part::space}, .stretch = 1});
        }
        put({.part = std::move(rest)}, place.row, place.column + 1, place.span - 1);
    }

    // Fields that share a place keep the columns of their grid: captions share one cell, controls the next, units the
    // last.
    void addTurns(const Layout& turns, const CellPlace& place) {
        LayoutPlan captions{.kind = Part::turns, .node = &turns};
        LayoutPlan controls = captions;
        LayoutPlan units = captions;
        for (const Layout& field : turns.children) {
            PlanCell caption = captionCell(field);
            caption.indented = place.column > 0;
            caption.part.shownByTurn = true;
            captions.cells.push_back(std::move(caption));
            LayoutPlan aligned{.kind = Part::box, .horizontal = true};
            aligned.cells.push_back(controlCell(field));
            controls.cells.push_back({.part = std::move(aligned)});
            const bool unit = !field.unit.empty();
            units.cells.push_back({.part = {.kind = unit ? Part::unit : Part::nothing, .node = &field}});
        }
        put({.part = std::move(captions)}, place.row, place.column, 1);
        put({.part = std::move(controls)}, place.row, place.column + 1, 1);
        put({.part = std::move(units)}, place.row, place.column + 2, 1);
    }

    void putCaption(const Layout& field, const CellPlace& place) {
        PlanCell caption = captionCell(field);
        caption.indented = place.column > 0;
        put(std::move(caption), place.row, place.column, 1);
    }

    void put(PlanCell cell, int row, int column, int span) {
        cell.row = row;
        cell.column = column;
        cell.columnSpan = span;
        grid_.cells.push_back(std::move(cell));
    }

    const Layout& node_;
    int columns_;
    LayoutPlan grid_{.kind = Part::grid};
};

}  // namespace

bool isCaptionedField(const Layout& node) {
    return node.kind == Kind::field && !node.captionAbove && hasCaption(node);
}

PlanCell captionCell(const Layout& field) {
    const auto* box = dynamic_cast<const screen::TextBox*>(field.control);
    const bool severalLines = box != nullptr && box->multiLine();
    return {.part = {.kind = Part::caption, .node = &field},
            .alignment = severalLines ? Alignment::leftTop : Alignment::leftCentre};
}

PlanCell controlCell(const Layout& field) {
    const bool grows = growsSideways(field) || growsDownward(field);
    return {.part = {.kind = Part::control, .node = &field},
            .alignment = grows ? Alignment::fill : Alignment::leftCentre};
}

LayoutPlan planGrid(const Layout& node, int columns) {
    return GridPlanner(node, columns).plan();
}

}  // namespace velmora::toolkit
