#pragma once
// Paints a technical drawing from its sketch plan.

#include "velmora/adapters/win32/gdi_plus.h"
#include "velmora/platform/toolkit/sketch_plan.h"

namespace velmora::win32 {

class SketchPainter {
  public:
    /// Texts in `font`, whose height is for a window at `scale` (1: 100 %).
    SketchPainter(HDC dc, HFONT font, double scale);

    /// Scales the drawing to fit `width` by `height` pixels of the device.
    void paint(const screen::Drawing& drawing, const toolkit::LabelTexts& labels, int width, int height);

  private:
    void draw(const toolkit::PlannedPath& path);
    void draw(const toolkit::PlannedCircle& circle);
    void draw(const toolkit::PlannedDimension& dimension);
    void draw(const toolkit::PlacedText& text);
    void drawShape(const Gdiplus::GraphicsPath& shape, screen::Pen pen, screen::Fill fill);
    void drawHatch(const Gdiplus::GraphicsPath& shape);

    Gdiplus::Graphics graphics_;
    Gdiplus::Font font_;
    double scale_;
};

}  // namespace velmora::win32
