#include "velmora/platform/toolkit/layout_nature.h"

#include <algorithm>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::toolkit {

namespace {

using screen::Layout;
using Kind = Layout::Kind;

template <typename T>
bool holds(const Layout& node) {
    return dynamic_cast<const T*>(node.control) != nullptr;
}

bool isPicture(const Layout& node) {
    return node.kind == Kind::field && (holds<screen::Sketch>(node) || holds<screen::DataGrid>(node));
}

}  // namespace

bool growsSideways(const Layout& node) {
    switch (node.kind) {
        case Kind::field:
            return isPicture(node) || holds<screen::Toolbar>(node) ||
                   (node.width == 0 && (holds<screen::TextBox>(node) || holds<screen::ComboBox>(node)));
        case Kind::space:
            return true;
        default:
            return std::ranges::any_of(node.children, growsSideways);
    }
}

bool growsDownward(const Layout& node) {
    switch (node.kind) {
        case Kind::field: {
            const auto* box = dynamic_cast<const screen::TextBox*>(node.control);
            return isPicture(node) || (box != nullptr && box->multiLine() && node.stretch > 0);
        }
        case Kind::column:
            return std::ranges::any_of(
                node.children, [](const Layout& child) { return child.kind == Kind::space || growsDownward(child); });
        case Kind::space:
            return false;
        default:
            return std::ranges::any_of(node.children, growsDownward);
    }
}

bool isTall(const Layout& node) {
    switch (node.kind) {
        case Kind::field:
            return isPicture(node);
        case Kind::group:
            return true;
        case Kind::column:
        case Kind::grid:
            return node.children.size() > 1;
        default:
            return std::ranges::any_of(node.children, isTall);
    }
}

bool speaksForItself(const Layout& node) {
    return holds<screen::CheckBox>(node) || holds<screen::Button>(node) || holds<screen::Label>(node);
}

}  // namespace velmora::toolkit
