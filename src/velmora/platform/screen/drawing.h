#pragma once
// A technical drawing in millimetres, y upward, with places for value labels. A toolkit scales it to its canvas: the
// piece keeps its proportions; line widths and letters have a fixed size in pixels.

#include <string>
#include <variant>
#include <vector>

namespace velmora::screen {

struct Point {
    double x = 0;
    double y = 0;
};

enum class Pen {
    outline,    ///< a visible edge: solid, strong
    thin,       ///< a secondary edge: solid, fine
    centre,     ///< an axis: dash and dot
    hidden,     ///< a hidden edge: dashed
    dimension,  ///< dimension and extension lines: fine, in the dimension's colour
};

enum class Fill {
    none,
    section,  ///< cut metal: tinted and hatched
    solid,    ///< metal seen from outside: tinted
    blank,    ///< the background, to cover what is behind
};

struct Path {
    std::vector<Point> points;
    bool closed = false;
    Pen pen = Pen::outline;
    Fill fill = Fill::none;
    int label = -1;  ///< belongs to the dimension with this label and is left out with it
};

struct Circle {
    Point centre;
    double radius = 0;
    Pen pen = Pen::outline;
    Fill fill = Fill::none;
};

/// Preferred position of a dimension's text along its line. Outside, the text needs no space between the extension
/// lines.
enum class TextPlace { middle, beforeFrom, afterTo };

/// A dimension line between two points, `offset` millimetres to its left seen from `from` to `to`, with extension
/// lines, arrow heads, and the text of value label `label` (none: -1) at its middle or outside.
struct Dimension {
    Point from;
    Point to;
    double offset = 0;
    int label = -1;
    /// What is measured, such as "De". Precedes the label's text unless that text begins with words of its own.
    std::string caption = {};
    TextPlace place = TextPlace::middle;
};

/// A fixed text.
struct Caption {
    Point at;
    std::string text;
};

using Shape = std::variant<Path, Circle, Dimension, Caption>;

struct Drawing {
    std::vector<Shape> shapes;  ///< painted in this order
};

}  // namespace velmora::screen
