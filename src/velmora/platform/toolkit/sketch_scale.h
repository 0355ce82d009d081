#pragma once
// Scaling of a drawing in millimetres to a canvas in pixels.

#include <vector>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/toolkit/dimension_texts.h"
#include "velmora/platform/toolkit/pixel_geometry.h"
#include "velmora/platform/toolkit/sketch_texts.h"

namespace velmora::toolkit {

/// Converts the drawing's millimetres, y upward, to the canvas.
struct SketchScale {
    double pixelsPerMillimetre = 1;
    PixelPoint shift;

    PixelPoint map(screen::Point p) const {
        return PixelPoint{p.x * pixelsPerMillimetre, -p.y * pixelsPerMillimetre} + shift;
    }
};

/// The dimension's line on the canvas, with its text.
DimensionLine lineOf(const screen::Dimension& dimension, const SketchScale& scale, const LabelTexts& labels);

/// The largest scale, at most 12 pixels per millimetre, at which the shapes and their texts fit into the area, centred
/// in it. On a canvas that is too small for the texts the piece keeps 60 % of the area.
SketchScale fittingScale(const std::vector<const screen::Shape*>& shapes, const LabelTexts& labels,
                         const PixelRect& room, const MeasureText& measure);

}  // namespace velmora::toolkit
