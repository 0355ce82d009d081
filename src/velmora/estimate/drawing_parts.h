#pragma once
// What the drawings of the pieces have in common: a wheel that can be made, its outlines, and dimension lines in rows.
// Private to the drawings.

#include <numbers>
#include <optional>
#include <vector>

#include "velmora/estimate/wheel_measures.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate::parts {

using screen::Drawing;
using screen::Fill;
using screen::Path;
using screen::Pen;
using screen::Point;

inline constexpr double pi = std::numbers::pi;

/// The measure when it lies strictly between the bounds. The comparison also turns away what is not a number.
std::optional<double> within(double low, const std::optional<double>& value, double high);

/// Radii of a wheel that can be made.
struct Wheel {
    Toothing toothing = Toothing::chain;
    int teeth = 0;  ///< zero: not known, or too many to be told apart
    double exterior = 0;
    double pitch = 0;
    double root = 0;
    double bore = 0;
    double keywayWidth = 0;
    double keywayDepth = 0;

    bool hasTeeth() const { return toothing != Toothing::smooth; }
};

/// The wheel up to its exterior, still without a bore.
Wheel solidWheel(const WheelMeasures& measures);
/// Bores the wheel where its narrowest part has the radius `narrowest`.
void cutBore(Wheel& wheel, const WheelMeasures& measures, double narrowest);
/// A hub's radius that suits the wheel.
double hubRadius(const Wheel& wheel, const std::optional<double>& diameter);
/// A width that such a wheel may have.
std::optional<double> sensibleWidth(const Wheel& wheel, const std::optional<double>& width);
/// That, or `ordinary` parts of the exterior diameter.
double widthOr(const Wheel& wheel, const std::optional<double>& width, double ordinary);

/// Ordinary widths, as parts of the exterior diameter.
inline constexpr double ordinaryRim = 0.12;
inline constexpr double ordinaryHubWidth = 0.24;

void line(Drawing& drawing, Point from, Point to, Pen pen);
void area(Drawing& drawing, std::vector<Point> points, Fill fill, Pen pen = Pen::outline);
void circle(Drawing& drawing, Point centre, double radius, Pen pen, Fill fill = Fill::none);

/// The dimension lines stand in rows, one line of text apart. On the smallest canvas that a picture is meant for a
/// row has `rowPixels`; from this follows how many millimetres of a piece that is.
inline constexpr double canvasWidth = 346;
inline constexpr double canvasHeight = 360;
inline constexpr double rowPixels = 21;

inline constexpr double firstRow = 1.3;  // all in rows
inline constexpr double sideDistance = 1.6;
inline constexpr double viewDistance = 1.8;
inline constexpr double overshoot = 0.5;

/// The rows above and below a section, and how far the front view stands from it.
struct Surroundings {
    int above = 0;
    int below = 0;
    double between = viewDistance;
};

struct Stand {
    double row = 0;    ///< millimetres from one dimension line to the next
    double viewX = 0;  ///< the axis of the front view
};

Stand arrange(const Wheel& wheel, double width, const Surroundings& surroundings);

/// The section through the axis, from x = 0: the profile is the upper edge of the metal between the two end faces,
/// without the bore.
void drawCutMetal(Drawing& drawing, const Wheel& wheel, const std::vector<Point>& profile);
/// A rim's teeth in the section, above and below the axis.
void drawTeethInSection(Drawing& drawing, const Wheel& wheel, double left, double right);
/// The pitch line across the rims.
void drawPitchLine(Drawing& drawing, const Wheel& wheel, double left, double right, double row);
void drawAxis(Drawing& drawing, double width, double row);
/// The view along the axis, with the hub that is seen.
void drawFrontView(Drawing& drawing, const Wheel& wheel, const Stand& stand, std::optional<double> hub);

/// What a dimension says.
struct Mark {
    int label;
    const char* caption = "";
    screen::TextPlace place = screen::TextPlace::middle;
};

template <typename Label>
Mark mark(Label label, const char* caption = "", screen::TextPlace place = screen::TextPlace::middle) {
    return {static_cast<int>(label), caption, place};
}

void dimension(Drawing& drawing, Point from, Point to, double offset, const Mark& mark);

/// Above or below the axis.
enum class Side { above = 1, below = -1 };

/// Dimension lines of widths, in rows counted from the wheel.
class WidthRows {
  public:
    WidthRows(Drawing& drawing, const Wheel& wheel, double row) : drawing_(drawing), wheel_(wheel), row_(row) {}

    void width(Side side, int place, double left, double right, const Mark& mark) const;
    /// Leads an edge out to where the extension line of a row begins, and a little further: a toolkit may leave a gap
    /// there. With a label it stays out of the picture together with that label's dimension.
    void leadOut(Side side, int place, double x, double edge, int label = -1) const;

    /// How far from the axis the dimension line of a row stands.
    double level(int place) const;
    /// Where the extension lines of a row begin: those of the first at the rim, those of a further one at the row
    /// before, so that no two of them lie on each other.
    double foot(int place) const;
    double row() const { return row_; }

  private:
    Drawing& drawing_;
    const Wheel& wheel_;
    double row_;
};

}  // namespace velmora::estimate::parts
