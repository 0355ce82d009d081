#include "velmora/adapters/painting/sketch_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>

#include "velmora/adapters/painting/colours.h"
#include "velmora/adapters/painting/text.h"
#include "velmora/platform/toolkit/sketch_style.h"

namespace velmora::painting {

namespace {

namespace style = toolkit::sketch_style;

constexpr QColor textBackground{255, 255, 255, 225};

QPen penOf(screen::Pen pen) {
    const style::PenStyle look = style::styleOf(pen);
    QPen stroke(QColor(QRgb(look.color)), look.width);
    if (!look.dashes.empty()) {
        stroke.setCapStyle(Qt::FlatCap);
        stroke.setDashPattern(QList<qreal>(look.dashes.begin(), look.dashes.end()));
    } else if (pen != screen::Pen::dimension) {
        stroke.setCapStyle(Qt::RoundCap);
        stroke.setJoinStyle(Qt::RoundJoin);
    }
    return stroke;
}

QPointF toQt(toolkit::PixelPoint p) {
    return {p.x, p.y};
}

}  // namespace

SketchPainter::SketchPainter(QPainter& painter, const screen::Drawing& drawing, const toolkit::LabelTexts& labels)
    : painter_(painter), drawing_(drawing), labels_(labels) {}

void SketchPainter::paint(const QRectF& canvas) {
    painter_.setRenderHint(QPainter::Antialiasing);
    // Without hinting, rotated letters are as wide as horizontal ones.
    QFont font = painter_.font();
    font.setHintingPreference(QFont::PreferNoHinting);
    painter_.setFont(font);
    const QFontMetricsF metrics(painter_.font());
    const toolkit::MeasureText measure = [&](const std::string& text) {
        return toolkit::PixelSize{.width = metrics.horizontalAdvance(painting::toQt(text)), .height = metrics.height()};
    };
    const toolkit::PixelRect room{
        .left = canvas.left(), .top = canvas.top(), .width = canvas.width(), .height = canvas.height()};
    for (const toolkit::PlannedShape& shape : toolkit::planSketch(drawing_, labels_, room, measure).shapes) {
        std::visit([this](const auto& s) { draw(s); }, shape);
    }
}

void SketchPainter::draw(const toolkit::PlannedPath& path) {
    QPainterPath shape;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        const QPointF point = toQt(path.points[i]);
        i == 0 ? shape.moveTo(point) : shape.lineTo(point);
    }
    if (path.closed) {
        shape.closeSubpath();
    }
    drawShape(shape, path.pen, path.fill);
}

void SketchPainter::draw(const toolkit::PlannedCircle& circle) {
    QPainterPath shape;
    shape.addEllipse(toQt(circle.centre), circle.radius, circle.radius);
    drawShape(shape, circle.pen, circle.fill);
}

void SketchPainter::drawShape(const QPainterPath& shape, screen::Pen pen, screen::Fill fill) {
    switch (fill) {
        case screen::Fill::section:
            painter_.fillPath(shape, QColor(style::sectionMetal));
            drawHatch(shape);
            break;
        case screen::Fill::solid:
            painter_.fillPath(shape, QColor(style::metal));
            break;
        case screen::Fill::blank:
            painter_.fillPath(shape, QColor(style::background));
            break;
        case screen::Fill::none:
            break;
    }
    painter_.strokePath(shape, penOf(pen));
}

void SketchPainter::drawHatch(const QPainterPath& shape) {
    const QRectF box = shape.boundingRect();
    painter_.save();
    painter_.setClipPath(shape, Qt::IntersectClip);
    painter_.setPen(QPen(QColor(style::hatchInk), style::hatchWidth));
    for (const toolkit::PixelLine& line :
         toolkit::hatchLines({.left = box.left(), .top = box.top(), .width = box.width(), .height = box.height()})) {
        painter_.drawLine(toQt(line.from), toQt(line.to));
    }
    painter_.restore();
}

void SketchPainter::draw(const toolkit::PlannedDimension& dimension) {
    painter_.setPen(penOf(screen::Pen::dimension));
    for (const toolkit::PixelLine& line : dimension.lines) {
        painter_.drawLine(toQt(line.from), toQt(line.to));
    }
    painter_.save();
    painter_.setBrush(QColor(style::dimensionInk));
    painter_.setPen(Qt::NoPen);
    for (const toolkit::ArrowHead& arrow : dimension.arrows) {
        painter_.drawPolygon(QPolygonF({toQt(arrow[0]), toQt(arrow[1]), toQt(arrow[2])}));
    }
    painter_.restore();
    if (dimension.text) {
        draw(*dimension.text);
    }
}

void SketchPainter::draw(const toolkit::PlacedText& text) {
    const QRectF box(-text.size.width / 2, -text.size.height / 2, text.size.width, text.size.height);
    painter_.save();
    painter_.translate(toQt(text.middle));
    painter_.rotate(text.angle);
    painter_.fillRect(box.adjusted(0, 1, 0, -1), textBackground);
    painter_.setPen(QColor(colours::text));
    painter_.drawText(box, Qt::AlignCenter | Qt::TextDontClip, painting::toQt(text.text));
    painter_.restore();
}

}  // namespace velmora::painting
