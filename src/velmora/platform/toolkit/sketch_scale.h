#pragma once
// How a drawing in millimetres comes to lie on a canvas of pixels.

#include <vector>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/toolkit/dimension_texts.h"
#include "velmora/platform/toolkit/pixel_geometry.h"
#include "velmora/platform/toolkit/sketch_texts.h"

namespace velmora::toolkit {

/// From the drawing's millimetres, y upward, to the canvas.
struct SketchScale {
    double pixelsPerMillimetre = 1;
    PixelPoint shift;

    PixelPoint map(screen::Point p) const {
        return PixelPoint{p.x * pixelsPerMillimetre, -p.y * pixelsPerMillimetre} + shift;
    }
};

/// The dimension's line on the canvas, with the text that it shows.
DimensionLine lineOf(const screen::Dimension& dimension, const SketchScale& scale, const LabelTexts& labels);

/// The largest scale, up to 12 pixels a millimetre, at which the shapes and their texts fit into the room, with their
/// middle in its middle.
SketchScale fittingScale(const std::vector<const screen::Shape*>& shapes, const LabelTexts& labels,
                         const PixelRect& room, const MeasureText& measure);

}  // namespace velmora::toolkit
