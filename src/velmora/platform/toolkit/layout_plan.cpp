#include "velmora/platform/toolkit/layout_plan.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/toolkit/grid_plan.h"
#include "velmora/platform/toolkit/layout_captions.h"
#include "velmora/platform/toolkit/layout_nature.h"

namespace velmora::toolkit {

namespace {

using screen::Layout;
using Kind = Layout::Kind;
using Part = LayoutPlan::Kind;

LayoutPlan planTurns(const Layout& node) {
    LayoutPlan turns{.kind = Part::turns, .node = &node};
    for (const Layout& child : node.children) {
        LayoutPlan page = planOf(child);
        page.shownByTurn = page.kind == Part::group;
        turns.cells.push_back({.part = std::move(page)});
    }
    return turns;
}

LayoutPlan planGroup(const Layout& node) {
    LayoutPlan group{.kind = Part::group, .node = &node};
    for (const Layout& child : node.children) {
        group.cells.push_back({.part = planOf(child)});
    }
    return group;
}

/// A field with its caption before or above it and its unit after it.
LayoutPlan planField(const Layout& node) {
    if (node.control == nullptr) {
        return {};
    }
    const bool unit = !node.unit.empty();
    if (!hasCaption(node) && !unit) {
        return {.kind = Part::control, .node = &node};
    }
    LayoutPlan box{.kind = Part::box,
                   .horizontal = !node.captionAbove,
                   .spacing = node.captionAbove ? Spacing::caption : Spacing::parts};
    if (hasCaption(node)) {
        box.cells.push_back(captionCell(node));
    }
    if (unit && node.captionAbove) {
        LayoutPlan line{.kind = Part::box, .horizontal = true};
        line.cells.push_back({.part = {.kind = Part::control, .node = &node}, .stretch = 1});
        line.cells.push_back({.part = {.kind = Part::unit, .node = &node}});
        box.cells.push_back({.part = std::move(line)});
        return box;
    }
    PlanCell control = controlCell(node);
    control.stretch = 1;
    box.cells.push_back(std::move(control));
    if (unit) {
        box.cells.push_back({.part = {.kind = Part::unit, .node = &node}, .alignment = Alignment::centre});
    }
    return box;
}

LayoutPlan planBox(const Layout& node, bool horizontal) {
    const bool tall = std::ranges::any_of(node.children, isTall);
    const Spacing small = horizontal ? Spacing::parts : Spacing::lines;
    LayoutPlan box{.kind = Part::box, .horizontal = horizontal, .spacing = tall ? Spacing::groups : small};
    for (const Layout& child : node.children) {
        addToBox(box, child, tall ? AlignTop::yes : AlignTop::no);
    }
    const auto grows = [&](const Layout& child) {
        return child.kind == Kind::space || child.stretch > 0 ||
               (horizontal ? growsSideways(child) : growsDownward(child));
    };
    if (std::ranges::none_of(node.children, grows)) {
        box.cells.push_back({.part = {.kind = Part::space}, .stretch = 1});
    }
    return box;
}

}  // namespace

void addToBox(LayoutPlan& box, const Layout& node, AlignTop alignTop) {
    if (node.kind == Kind::space) {
        box.cells.push_back({.part = {.kind = Part::space}, .stretch = std::max(node.stretch, 1)});
        return;
    }
    LayoutPlan part = planOf(node);
    if (part.kind == Part::nothing) {
        return;
    }
    const bool grows = box.horizontal ? growsSideways(node) : growsDownward(node);
    const bool single = part.kind == Part::control || part.kind == Part::turns;
    const bool top = box.horizontal && alignTop == AlignTop::yes && single && !isTall(node);
    box.cells.push_back({.part = std::move(part),
                         .alignment = top ? Alignment::top : Alignment::fill,
                         .stretch = node.stretch > 0 ? node.stretch : (grows ? 1 : 0)});
}

LayoutPlan planOf(const Layout& tree) {
    switch (tree.kind) {
        case Kind::column:
            return std::ranges::any_of(tree.children, isCaptionedField) ? planGrid(tree, 1) : planBox(tree, false);
        case Kind::row:
            return planBox(tree, true);
        case Kind::grid:
            return planGrid(tree, std::max(tree.columns, 1));
        case Kind::group:
            return planGroup(tree);
        case Kind::takeTurns:
            return planTurns(tree);
        case Kind::field:
            return planField(tree);
        default:
            return {};
    }
}

}  // namespace velmora::toolkit
