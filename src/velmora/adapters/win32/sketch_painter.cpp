#include "velmora/adapters/win32/sketch_painter.h"

#include <vector>

#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/sketch_style.h"
#include "velmora/platform/toolkit/window_style.h"

namespace velmora::win32 {

namespace {

namespace look = toolkit::sketch_style;

constexpr unsigned char translucent = 225;  ///< of the ground behind a text

Gdiplus::Color inkOf(std::uint32_t rgb) {
    return Gdiplus::Color(0xFF000000U | rgb);
}

Gdiplus::PointF pointFor(toolkit::PixelPoint p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y)};
}

/// A pen with the looks of a kind of line. Pens cannot be copied, so it is set up in place.
class LinePen {
  public:
    explicit LinePen(screen::Pen kind)
        : pen_(inkOf(look::styleOf(kind).color), static_cast<float>(look::styleOf(kind).width)) {
        const look::PenStyle style = look::styleOf(kind);
        if (!style.dashes.empty()) {
            const std::vector<float> dashes(style.dashes.begin(), style.dashes.end());
            pen_.SetDashPattern(dashes.data(), static_cast<int>(dashes.size()));
        } else if (kind != screen::Pen::dimension) {
            pen_.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapFlat);
            pen_.SetLineJoin(Gdiplus::LineJoinRound);
        }
    }
    const Gdiplus::Pen& pen() const { return pen_; }

  private:
    Gdiplus::Pen pen_;
};

}  // namespace

SketchPainter::SketchPainter(HDC dc, HFONT font, double scale) : graphics_(dc), font_(dc, font), scale_(scale) {
    graphics_.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics_.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    graphics_.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAlias);
}

// Planned in pixels of a window at 100 %, so that pens, arrows and distances grow with the scale as the letters do.
void SketchPainter::paint(const screen::Drawing& drawing, const toolkit::LabelTexts& labels, int width, int height) {
    const toolkit::MeasureText measure = [this](const std::string& text) {
        const std::wstring wide = toWide(text);
        Gdiplus::RectF bounds;
        graphics_.MeasureString(wide.c_str(), static_cast<int>(wide.size()), &font_, Gdiplus::PointF(0, 0),
                                Gdiplus::StringFormat::GenericTypographic(), &bounds);
        return toolkit::PixelSize{.width = bounds.Width / scale_, .height = bounds.Height / scale_};
    };
    const toolkit::PixelRect room{.width = width / scale_, .height = height / scale_};
    const toolkit::SketchPlan plan = toolkit::planSketch(drawing, labels, room, measure);
    graphics_.ScaleTransform(static_cast<float>(scale_), static_cast<float>(scale_));
    for (const toolkit::PlannedShape& shape : plan.shapes) {
        std::visit([this](const auto& s) { draw(s); }, shape);
    }
}

void SketchPainter::draw(const toolkit::PlannedPath& path) {
    std::vector<Gdiplus::PointF> points;
    for (const toolkit::PixelPoint& point : path.points) {
        points.push_back(pointFor(point));
    }
    Gdiplus::GraphicsPath shape;
    shape.AddLines(points.data(), static_cast<int>(points.size()));
    if (path.closed) {
        shape.CloseFigure();
    }
    drawShape(shape, path.pen, path.fill);
}

void SketchPainter::draw(const toolkit::PlannedCircle& circle) {
    Gdiplus::GraphicsPath shape;
    const auto radius = static_cast<float>(circle.radius);
    const Gdiplus::PointF centre = pointFor(circle.centre);
    shape.AddEllipse(centre.X - radius, centre.Y - radius, 2 * radius, 2 * radius);
    drawShape(shape, circle.pen, circle.fill);
}

void SketchPainter::drawShape(const Gdiplus::GraphicsPath& shape, screen::Pen pen, screen::Fill fill) {
    const auto fillWith = [&](look::Rgb color) {
        const Gdiplus::SolidBrush brush(inkOf(color));
        graphics_.FillPath(&brush, &shape);
    };
    switch (fill) {
        case screen::Fill::section:
            fillWith(look::sectionMetal);
            drawHatch(shape);
            break;
        case screen::Fill::solid:
            fillWith(look::metal);
            break;
        case screen::Fill::blank:
            fillWith(look::background);
            break;
        case screen::Fill::none:
            break;
    }
    graphics_.DrawPath(&LinePen(pen).pen(), &shape);
}

void SketchPainter::drawHatch(const Gdiplus::GraphicsPath& shape) {
    Gdiplus::RectF bounds;
    shape.GetBounds(&bounds);
    const Gdiplus::GraphicsState state = graphics_.Save();
    graphics_.SetClip(&shape, Gdiplus::CombineModeIntersect);
    const Gdiplus::Pen pen(inkOf(look::hatchInk), static_cast<float>(look::hatchWidth));
    for (const toolkit::PixelLine& line :
         toolkit::hatchLines({.left = bounds.X, .top = bounds.Y, .width = bounds.Width, .height = bounds.Height})) {
        graphics_.DrawLine(&pen, pointFor(line.from), pointFor(line.to));
    }
    graphics_.Restore(state);
}

void SketchPainter::draw(const toolkit::PlannedDimension& dimension) {
    const LinePen pen(screen::Pen::dimension);
    for (const toolkit::PixelLine& line : dimension.lines) {
        graphics_.DrawLine(&pen.pen(), pointFor(line.from), pointFor(line.to));
    }
    const Gdiplus::SolidBrush brush(inkOf(look::dimensionInk));
    for (const toolkit::ArrowHead& arrow : dimension.arrows) {
        const Gdiplus::PointF corners[] = {pointFor(arrow[0]), pointFor(arrow[1]), pointFor(arrow[2])};
        graphics_.FillPolygon(&brush, corners, 3);
    }
    if (dimension.text) {
        draw(*dimension.text);
    }
}

void SketchPainter::draw(const toolkit::PlacedText& text) {
    const Gdiplus::GraphicsState state = graphics_.Save();
    graphics_.TranslateTransform(static_cast<float>(text.middle.x), static_cast<float>(text.middle.y));
    graphics_.RotateTransform(static_cast<float>(text.angle));
    const auto width = static_cast<float>(text.size.width);
    const auto height = static_cast<float>(text.size.height);
    const Gdiplus::SolidBrush ground(Gdiplus::Color(translucent, 255, 255, 255));
    graphics_.FillRectangle(&ground, -width / 2, -height / 2 + 1, width, height - 2);
    // The letters already have the size of the device.
    const auto back = static_cast<float>(1 / scale_);
    graphics_.ScaleTransform(back, back);
    const Gdiplus::SolidBrush letters(inkOf(toolkit::window_style::text));
    const std::wstring wide = toWide(text.text);
    const auto factor = static_cast<float>(scale_);
    graphics_.DrawString(wide.c_str(), static_cast<int>(wide.size()), &font_,
                         Gdiplus::PointF(-width / 2 * factor, -height / 2 * factor),
                         Gdiplus::StringFormat::GenericTypographic(), &letters);
    graphics_.Restore(state);
}

}  // namespace velmora::win32
