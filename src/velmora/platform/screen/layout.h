#pragma once
// The arrangement of a form's controls: one tree that every toolkit renders.

#include <string>
#include <utility>
#include <vector>

#include "velmora/platform/screen/control.h"

namespace velmora::screen {

class Sketch;
class DataGrid;

/// Kind of a field, which sets its background: white for entered values, a faint tint for calculated ones.
enum class Role { entered, calculated, total, label };

struct Layout {
    enum class Kind {
        none,
        column,     ///< children one below the other
        row,        ///< children side by side
        grid,       ///< children in `columns` columns, row by row; captions and fields line up
        group,      ///< a frame around its first child, titled by the frame's caption; a second one stands in the title
        takeTurns,  ///< children (groups) that share one place: only the first visible one is shown
        field,      ///< a caption (fixed text or a Label) and a control beside it
        space,      ///< takes the remaining space
        gap,        ///< an empty cell of a grid
    };

    Kind kind = Kind::none;
    std::vector<Layout> children = {};
    Control* control = nullptr;
    Label* captionLabel = nullptr;  ///< supplies the caption; the caption is visible when the label is
    std::string caption = {};       ///< used without captionLabel
    std::string unit = {};          ///< shown behind the control: mm, kg, €
    int columns = 0;                ///< for a grid
    int width = 0;                  ///< of a field, in digits; 0: all available width
    int lines = 1;                  ///< number of lines of a text field
    bool right = false;             ///< right-aligned, for numbers
    int decimals = 0;               ///< a number without the focus is painted with at least as many; its text stays
    Role role = Role::entered;
    int stretch = 0;  ///< share of the remaining space
    bool captionAbove = false;
    bool collapses = false;              ///< of a shared place: takes no room while none of its children is visible
    const Control* shownWith = nullptr;  ///< of a child of a shared place: it has no turn while this one is hidden
    bool spread = false;  ///< of a grid: its rows share the remaining height, which else stays below them

    // Modifiers, chained: field("Z", box, 6).number().asCalculated()
    Layout&& number() && {
        right = true;
        return std::move(*this);
    }
    /// The same, painted with at least so many decimals.
    Layout&& number(int shownDecimals) && {
        right = true;
        decimals = shownDecimals;
        return std::move(*this);
    }
    Layout&& as(Role r) && {
        role = r;
        return std::move(*this);
    }
    Layout&& units(std::string u) && {
        unit = std::move(u);
        return std::move(*this);
    }
    Layout&& stretched(int share = 1) && {
        stretch = share;
        return std::move(*this);
    }
    Layout&& tall(int n) && {
        lines = n;
        return std::move(*this);
    }
    Layout&& above() && {
        captionAbove = true;
        return std::move(*this);
    }
    Layout&& collapsing() && {
        collapses = true;
        return std::move(*this);
    }
    Layout&& with(const Control& other) && {
        shownWith = &other;
        return std::move(*this);
    }
    Layout&& spreadOut() && {
        spread = true;
        return std::move(*this);
    }
    /// For a group: a part at the right end of its title's line.
    Layout&& headedBy(Layout part) && {
        children.push_back(std::move(part));
        return std::move(*this);
    }
};

namespace layout {

template <typename... Children>
std::vector<Layout> list(Children&&... children) {
    std::vector<Layout> all;
    all.reserve(sizeof...(children));
    (all.push_back(std::forward<Children>(children)), ...);
    return all;
}

template <typename... Children>
Layout column(Children&&... children) {
    return Layout{.kind = Layout::Kind::column, .children = list(std::forward<Children>(children)...)};
}
template <typename... Children>
Layout row(Children&&... children) {
    return Layout{.kind = Layout::Kind::row, .children = list(std::forward<Children>(children)...)};
}
template <typename... Children>
Layout grid(int columns, Children&&... children) {
    return Layout{
        .kind = Layout::Kind::grid, .children = list(std::forward<Children>(children)...), .columns = columns};
}
template <typename... Children>
Layout takeTurns(Children&&... children) {
    return Layout{.kind = Layout::Kind::takeTurns, .children = list(std::forward<Children>(children)...)};
}
inline Layout group(Frame& frame, Layout child) {
    return Layout{.kind = Layout::Kind::group, .children = list(std::move(child)), .control = &frame};
}
/// A control with a fixed caption, which is also its accessible name unless it has one.
inline Layout field(std::string caption, Control& control, int width = 0) {
    return Layout{.kind = Layout::Kind::field, .control = &control, .caption = std::move(caption), .width = width};
}
/// A control whose caption is a label of the form.
inline Layout field(Label& label, Control& control, int width = 0) {
    return Layout{.kind = Layout::Kind::field, .control = &control, .captionLabel = &label, .width = width};
}
/// A control without a caption: a button, a grid, a sketch, a label.
inline Layout plain(Control& control, int width = 0) {
    return Layout{.kind = Layout::Kind::field, .control = &control, .width = width};
}
inline Layout space() {
    return Layout{.kind = Layout::Kind::space, .stretch = 1};
}
inline Layout gap() {
    return Layout{.kind = Layout::Kind::gap};
}

}  // namespace layout
}  // namespace velmora::screen
