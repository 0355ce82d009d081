#pragma once
// A technical drawing made ready to be stroked: scaled to fit its canvas, dimensions worked out, texts placed.

#include <array>
#include <optional>
#include <variant>
#include <vector>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/toolkit/dimension_texts.h"
#include "velmora/platform/toolkit/pixel_geometry.h"
#include "velmora/platform/toolkit/sketch_texts.h"

namespace velmora::toolkit {

struct PlannedPath {
    std::vector<PixelPoint> points;
    bool closed = false;
    screen::Pen pen = screen::Pen::outline;
    screen::Fill fill = screen::Fill::none;
};

struct PlannedCircle {
    PixelPoint centre;
    double radius = 0;
    screen::Pen pen = screen::Pen::outline;
    screen::Fill fill = screen::Fill::none;
};

/// The three corners of an arrow head, its tip first.
using ArrowHead = std::array<PixelPoint, 3>;

struct PlannedDimension {
    std::vector<PixelLine> lines;  ///< extension lines and the dimension line, with the pen for dimensions
    std::array<ArrowHead, 2> arrows;
    std::optional<PlacedText> text;
};

/// PlacedText is a fixed text of the drawing.
using PlannedShape = std::variant<PlannedPath, PlannedCircle, PlacedText, PlannedDimension>;

struct SketchPlan {
    std::vector<PlannedShape> shapes;  ///< to be painted in this order
};

/// Scales the drawing to fill the canvas, less a margin, with its texts, which keep their size; a tiny piece is not
/// blown up beyond 12 pixels a millimetre. Dimensions come last; those whose label `labels` does not hold are left out,
/// with the paths that belong to them.
SketchPlan planSketch(const screen::Drawing& drawing, const LabelTexts& labels, const PixelRect& canvas,
                      const MeasureText& measure);

/// The lines of the hatch behind a section with these bounds, to be clipped by its outline. All sections of a canvas
/// share one raster, so that neighbouring ones hatch alike.
std::vector<PixelLine> hatchLines(const PixelRect& bounds);

}  // namespace velmora::toolkit
