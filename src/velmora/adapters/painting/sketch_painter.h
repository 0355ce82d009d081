#pragma once
// Paints a technical drawing from its sketch plan.

#include <QPainter>
#include <QRectF>

#include "velmora/platform/toolkit/sketch_plan.h"

namespace velmora::painting {

class SketchPainter {
  public:
    SketchPainter(QPainter& painter, const screen::Drawing& drawing, const toolkit::LabelTexts& labels);

    /// Scales the drawing to fit the canvas; texts use the painter's font.
    void paint(const QRectF& canvas);

  private:
    void draw(const toolkit::PlannedPath& path);
    void draw(const toolkit::PlannedCircle& circle);
    void draw(const toolkit::PlannedDimension& dimension);
    void draw(const toolkit::PlacedText& text);
    void drawShape(const QPainterPath& shape, screen::Pen pen, screen::Fill fill);
    void drawHatch(const QPainterPath& shape);

    QPainter& painter_;
    const screen::Drawing& drawing_;
    const toolkit::LabelTexts& labels_;
};

}  // namespace velmora::painting
