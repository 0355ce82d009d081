#pragma once
// Shared parts of the drawings: a wheel that can be made, its outlines, and dimension lines in rows. Internal to the
// drawings.

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

/// The value if it is strictly between the bounds. NaN fails the comparison, too.
std::optional<double> within(double low, const std::optional<double>& value, double high);

/// Radii of a wheel that can be made.
struct Wheel {
    Toothing toothing = Toothing::chain;
    int teeth = 0;  ///< zero: unknown, or too many to draw
    double exterior = 0;
    double pitch = 0;
    double root = 0;
    double bore = 0;
    double keywayWidth = 0;
    double keywayDepth = 0;
    bool dimensionsBore = false;

    bool hasTeeth() const { return toothing != Toothing::smooth; }
};

/// The wheel up to its exterior, without a bore.
Wheel solidWheel(const WheelMeasures& measures);
/// Adds a bore to a wheel whose narrowest part has the radius `narrowest`.
void cutBore(Wheel& wheel, const WheelMeasures& measures, double narrowest);
/// A hub's radius that is possible for the wheel.
double hubRadius(const Wheel& wheel, const std::optional<double>& diameter);
/// The width if it is possible for such a wheel.
std::optional<double> sensibleWidth(const Wheel& wheel, const std::optional<double>& width);
/// The width if possible, otherwise the exterior diameter times `ordinary`.
double widthOr(const Wheel& wheel, const std::optional<double>& width, double ordinary);

/// Ordinary widths, as fractions of the exterior diameter.
inline constexpr double ordinaryRim = 0.12;
inline constexpr double ordinaryHubWidth = 0.24;

void line(Drawing& drawing, Point from, Point to, Pen pen);
void area(Drawing& drawing, std::vector<Point> points, Fill fill, Pen pen = Pen::outline);
void circle(Drawing& drawing, Point centre, double radius, Pen pen, Fill fill = Fill::none);

/// The dimension lines are in rows, one line of text apart. On the smallest intended canvas a row has `rowPixels`; this
/// determines the millimetres of a row.
inline constexpr double canvasWidth = 346;
inline constexpr double canvasHeight = 360;
inline constexpr double rowPixels = 21;

inline constexpr double firstRow = 1.3;  // as a multiple of a row
inline constexpr double sideDistance = 1.6;
inline constexpr double viewDistance = 1.8;
inline constexpr double overshoot = 0.5;

/// The rows above and below a section, and the distance of the front view.
struct Surroundings {
    int above = 0;
    int below = 0;
    double between = viewDistance;
};

struct Stand {
    double row = 0;    ///< millimetres between two dimension lines
    double viewX = 0;  ///< x of the front view's axis
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
/// The view along the axis, with the visible hub.
void drawFrontView(Drawing& drawing, const Wheel& wheel, const Stand& stand, std::optional<double> hub);

/// The content of a dimension.
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
    /// Extends an edge to slightly beyond the start of a row's extension line, because a toolkit may leave a gap there.
    /// With a label it is left out together with that label's dimension.
    void leadOut(Side side, int place, double x, double edge, int label = -1) const;

    /// Distance of a row's dimension line from the axis.
    double level(int place) const;
    /// Start of a row's extension lines: at the rim for the first row, at the previous row for others, so that they do
    /// not overlap.
    double foot(int place) const;
    double row() const { return row_; }

  private:
    Drawing& drawing_;
    const Wheel& wheel_;
    double row_;
};

}  // namespace velmora::estimate::parts
