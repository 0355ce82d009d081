#pragma once
// A technical drawing in millimetres, y upward, with places for value labels. A toolkit scales it to its canvas:
// pens and letters keep their size on the screen, the piece keeps its proportions.

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
    thin,       ///< a lesser edge: solid, fine
    centre,     ///< an axis: dash and dot
    hidden,     ///< an edge behind: dashed
    dimension,  ///< dimension and extension lines: fine, in the dimension's colour
};

enum class Fill {
    none,
    section,  ///< cut metal: tinted and hatched
    solid,    ///< metal seen from outside: tinted
    blank,    ///< the background, to cover
};

struct Path {
    std::vector<Point> points;
    bool closed = false;
    Pen pen = Pen::outline;
    Fill fill = Fill::none;
    int label = -1;  ///< belongs to the dimension with this label, and stays out with it
};

struct Circle {
    Point centre;
    double radius = 0;
    Pen pen = Pen::outline;
    Fill fill = Fill::none;
};

/// Where along its line a dimension's text would rather stand. Outside, it needs no room between the extension lines.
enum class TextPlace { middle, beforeFrom, afterTo };

/// A dimension line between two points, `offset` millimetres to its left seen from `from` to `to`, with extension
/// lines, arrow heads, and the place of value label `label` (none: -1) at its middle or outside.
struct Dimension {
    Point from;
    Point to;
    double offset = 0;
    int label = -1;
    /// What the value is, such as "De". Stands before the label's text, unless that brings words of its own.
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
