#pragma once
// A technical drawing prepared for painting: scaled to its canvas, dimensions computed, texts placed.

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

/// The three corners of an arrow head, the tip first.
using ArrowHead = std::array<PixelPoint, 3>;

struct PlannedDimension {
    std::vector<PixelLine> lines;  ///< extension lines, dimension line and leader, drawn with the dimension pen
    std::array<ArrowHead, 2> arrows;
    std::optional<PlacedText> text;  ///< left out where the canvas has no room for it
};

/// PlacedText is a fixed text of the drawing.
using PlannedShape = std::variant<PlannedPath, PlannedCircle, PlacedText, PlannedDimension>;

struct SketchPlan {
    std::vector<PlannedShape> shapes;  ///< in painting order
};

/// Scales the drawing and its texts, whose size is fixed, to fill the canvas less a margin; never above 12 pixels per
/// millimetre, so that a tiny piece stays small. Dimensions come last; a dimension whose label is missing in `labels`
/// is left out, with the paths that belong to it.
SketchPlan planSketch(const screen::Drawing& drawing, const LabelTexts& labels, const PixelRect& canvas,
                      const MeasureText& measure);

/// The hatch lines behind a section with these bounds, to be clipped to its outline. All sections of a canvas share one
/// raster, so that the hatches of neighbouring ones are aligned.
std::vector<PixelLine> hatchLines(const PixelRect& bounds);

}  // namespace velmora::toolkit
