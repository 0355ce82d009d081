#include "velmora/platform/screen/places.h"

#include <algorithm>

#include "velmora/platform/screen/form.h"

namespace velmora::screen {

namespace {

bool holds(const Layout& node, const Control& control) {
    return node.control == &control || node.captionLabel == &control ||
           (node.control != nullptr && node.control->carries(control));
}

/// Whether a control is in a layout: not at all, in a part that is currently not shown, or in a shown part.
enum class Place { none, covered, open };

Place placeOf(const Layout& node, const Control& control) {
    if (holds(node, control)) {
        return Place::open;
    }
    const bool shared = node.kind == Layout::Kind::takeTurns;
    const std::size_t shown = shared ? shownTurn(node) : 0;
    Place best = Place::none;
    for (std::size_t i = 0; i < node.children.size() && best != Place::open; ++i) {
        Place here = placeOf(node.children[i], control);
        if (here == Place::open && shared && i != shown) {
            here = Place::covered;
        }
        best = std::max(best, here);
    }
    return best;
}

}  // namespace

bool isVisible(const Layout& node) {
    if (node.shownWith != nullptr && !node.shownWith->isVisible()) {
        return false;
    }
    switch (node.kind) {
        case Layout::Kind::field:
        case Layout::Kind::group:
            return node.control != nullptr && node.control->isVisible();
        default:
            return std::ranges::any_of(node.children, isVisible);
    }
}

std::size_t shownTurn(const Layout& turns) {
    const auto first = std::ranges::find_if(turns.children, isVisible);
    return static_cast<std::size_t>(first - turns.children.begin());
}

const Layout* fieldOf(const Control& control, const Layout& layout) {
    if (layout.kind == Layout::Kind::field && layout.control == &control) {
        return &layout;
    }
    for (const Layout& child : layout.children) {
        if (const Layout* field = fieldOf(control, child)) {
            return field;
        }
    }
    return nullptr;
}

bool isSeen(const Control& control) {
    return control.isVisible() && placeOf(control.form().layout(), control) != Place::covered;
}

}  // namespace velmora::screen
