#include "velmora/adapters/qt/sketch_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

namespace {

constexpr double margin = 10;
constexpr double arrowLength = 8;
constexpr double arrowHalfWidth = 2.6;
constexpr double extensionGap = 2;
constexpr double extensionOvershoot = 4;
constexpr double textGap = 3;
constexpr double hatchSpacing = 7;
constexpr double largestScale = 12;  ///< pixels a millimetre: a tiny piece is not blown up without bound

constexpr QRgb ink = 0xFF1B232C;
constexpr QRgb dimensionInk = 0xFF1F5C99;
constexpr QRgb axisInk = 0xFFB0413E;
constexpr QRgb metal = 0xFFDCE4EC;
constexpr QRgb sectionMetal = 0xFFE9EEF4;
constexpr QRgb hatchInk = 0xFF8C9AAA;

QPen penOf(screen::Pen pen) {
    switch (pen) {
        case screen::Pen::outline:
            return QPen(QColor(ink), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        case screen::Pen::thin:
            return QPen(QColor(ink), 0.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        case screen::Pen::centre: {
            QPen chain(QColor(axisInk), 0.9, Qt::CustomDashLine, Qt::FlatCap);
            chain.setDashPattern({14, 4, 2, 4});
            return chain;
        }
        case screen::Pen::hidden: {
            QPen dashed(QColor(ink), 0.9, Qt::CustomDashLine, Qt::FlatCap);
            dashed.setDashPattern({6, 4});
            return dashed;
        }
        case screen::Pen::dimension:
            return QPen(QColor(dimensionInk), 0.9);
    }
    return QPen();
}

QPointF unitVector(QPointF from, QPointF to) {
    const QPointF v = to - from;
    const double length = std::hypot(v.x(), v.y());
    return length > 0 ? v / length : QPointF(1, 0);
}

QPointF normal(QPointF u) {
    return {u.y(), -u.x()};
}

// Letters are read from below or from the right, as on any drawing.
double readingAngle(QPointF direction) {
    double angle = std::atan2(direction.y(), direction.x()) * 180 / std::acos(-1.0);
    if (angle >= 89.9) {
        angle -= 180;
    } else if (angle < -90.1) {
        angle += 180;
    }
    return angle;
}

QRectF boundsAt(QPointF middle, QSizeF size, double angle) {
    const double radians = angle * std::acos(-1.0) / 180;
    const double c = std::abs(std::cos(radians));
    const double s = std::abs(std::sin(radians));
    const QSizeF turned(size.width() * c + size.height() * s, size.width() * s + size.height() * c);
    return QRectF(middle - QPointF(turned.width() / 2, turned.height() / 2), turned);
}

bool meets(const QLineF& line, const QRectF& rect) {
    if (rect.contains(line.p1()) || rect.contains(line.p2())) {
        return true;
    }
    const std::array<QLineF, 4> sides{
        QLineF(rect.topLeft(), rect.topRight()), QLineF(rect.topRight(), rect.bottomRight()),
        QLineF(rect.bottomRight(), rect.bottomLeft()), QLineF(rect.bottomLeft(), rect.topLeft())};
    return std::ranges::any_of(
        sides, [&](const QLineF& side) { return line.intersects(side, nullptr) == QLineF::BoundedIntersection; });
}

}  // namespace

QString shownText(const screen::Dimension& dimension, const LabelTexts& labels) {
    const auto label = labels.find(dimension.label);
    const QString value = label == labels.end() ? QString() : label->second;
    const QString caption = toQt(dimension.caption);
    if (caption.isEmpty() || (!value.isEmpty() && value.front().isLetter())) {
        return value;
    }
    return value.isEmpty() ? caption : caption + QLatin1Char(' ') + value;
}

bool SketchPainter::DimensionLine::hasRoom() const {
    return QLineF(start, end).length() > 3 * arrowLength;
}

SketchPainter::SketchPainter(QPainter& painter, const screen::Drawing& drawing, const LabelTexts& labels)
    : painter_(painter), drawing_(drawing), labels_(labels) {}

void SketchPainter::paint(const QRectF& canvas) {
    painter_.setRenderHint(QPainter::Antialiasing);
    // Turned letters are as wide as level ones only without hinting.
    QFont font = painter_.font();
    font.setHintingPreference(QFont::PreferNoHinting);
    painter_.setFont(font);
    canvas_ = canvas;
    fit(canvas.adjusted(margin, margin, -margin, -margin));
    for (const screen::Shape& shape : drawing_.shapes) {
        if (!std::holds_alternative<screen::Dimension>(shape)) {
            std::visit([this](const auto& s) { draw(s); }, shape);
        }
    }
    // Dimensions last: their texts look for a place that the piece leaves free.
    for (const screen::Shape& shape : drawing_.shapes) {
        if (const auto* dimension = std::get_if<screen::Dimension>(&shape)) {
            draw(*dimension);
        }
    }
}

QPointF SketchPainter::map(screen::Point point) const {
    return QPointF(point.x * scale_, -point.y * scale_) + shift_;
}

// Texts keep their size while the piece is scaled, so the largest scale that fits is searched for, not computed.
void SketchPainter::fit(const QRectF& canvas) {
    double low = 0;
    double high = largestScale;
    const auto fits = [&](double scale) {
        const QRectF all = extent(scale);
        return all.width() <= canvas.width() && all.height() <= canvas.height();
    };
    if (fits(high)) {
        low = high;
    }
    for (int i = 0; i < 40 && low < high; ++i) {
        const double middle = (low + high) / 2;
        (fits(middle) ? low : high) = middle;
    }
    const QRectF all = extent(low);
    scale_ = low;
    shift_ = canvas.center() - all.center();
}

QRectF SketchPainter::extent(double scale) const {
    SketchPainter trial(painter_, drawing_, labels_);
    trial.scale_ = scale;
    QRectF all;
    const auto include = [&](const QRectF& rect) { all = all.isNull() ? rect : all.united(rect); };
    const auto includePoint = [&](QPointF p) { include(QRectF(p - QPointF(0.5, 0.5), QSizeF(1, 1))); };
    for (const screen::Shape& shape : drawing_.shapes) {
        if (const auto* path = std::get_if<screen::Path>(&shape)) {
            if (!isShown(path->label)) {
                continue;
            }
            for (const screen::Point& point : path->points) {
                includePoint(trial.map(point));
            }
        } else if (const auto* circle = std::get_if<screen::Circle>(&shape)) {
            const double r = circle->radius * scale;
            include(QRectF(trial.map(circle->centre) - QPointF(r, r), QSizeF(2 * r, 2 * r)));
        } else if (const auto* caption = std::get_if<screen::Caption>(&shape)) {
            const QSizeF size = QFontMetricsF(painter_.font()).size(Qt::TextSingleLine, toQt(caption->text));
            include(boundsAt(trial.map(caption->at), size, 0));
        } else if (const auto* dimension = std::get_if<screen::Dimension>(&shape); isShown(*dimension)) {
            const DimensionLine line = trial.lineOf(*dimension);
            includePoint(line.start);
            includePoint(line.end);
            if (!line.text.isEmpty()) {
                include(trial.candidates(line).front().bounds);
            }
        }
    }
    return all;
}

SketchPainter::DimensionLine SketchPainter::lineOf(const screen::Dimension& dimension) const {
    const QPointF from = map(dimension.from);
    const QPointF to = map(dimension.to);
    const QPointF away = normal(unitVector(from, to)) * (dimension.offset * scale_);
    return {from, to, from + away, to + away, shownText(dimension, labels_), dimension.place};
}

std::vector<SketchPainter::TextPlace> SketchPainter::candidates(const DimensionLine& line) const {
    const QFontMetricsF metrics(painter_.font());
    const QSizeF size(metrics.horizontalAdvance(line.text) + 4, metrics.height());
    const QPointF u = unitVector(line.start, line.end);
    const double angle = readingAngle(u);
    const QPointF middle = (line.start + line.end) / 2;
    const QPointF above =
        normal(QPointF(std::cos(angle * std::acos(-1.0) / 180), std::sin(angle * std::acos(-1.0) / 180)));
    const double distance = size.height() / 2 + textGap - 1;
    const double length = QLineF(line.start, line.end).length();
    std::vector<TextPlace> places;
    for (const double slide : {0.0, 0.2, -0.2, 0.35, -0.35}) {
        for (const double side : {1.0, -1.0}) {
            const QPointF at = middle + above * (distance * side) + u * (slide * length);
            places.push_back({at, angle, boundsAt(at, size, angle)});
        }
    }
    const double clearance = line.hasRoom() ? 0.5 * arrowLength : 2.5 * arrowLength;
    for (const double end : {1.0, -1.0}) {
        const QPointF at = middle + u * (end * (length / 2 + size.width() / 2 + clearance));
        places.push_back({at, angle, boundsAt(at, size, angle)});
    }
    if (line.place != screen::TextPlace::middle) {
        // The last two places are the outer ones, that beyond the end before that beyond the start.
        std::rotate(places.begin(), places.end() - (line.place == screen::TextPlace::afterTo ? 2 : 1), places.end());
    }
    return places;
}

double SketchPainter::cost(const QRectF& bounds) const {
    double sum = 0;
    for (const QLineF& line : outline_) {
        sum += meets(line, bounds) ? 10 : 0;
    }
    for (const QRectF& text : texts_) {
        sum += text.intersects(bounds) ? 200 : 0;
    }
    return canvas_.contains(bounds) ? sum : sum + 500;
}

SketchPainter::TextPlace SketchPainter::place(const DimensionLine& line) const {
    const std::vector<TextPlace> places = candidates(line);
    const TextPlace* best = nullptr;
    double lowest = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double here = cost(places[i].bounds) + 0.1 * static_cast<double>(i);
        if (best == nullptr || here < lowest) {
            best = &places[i];
            lowest = here;
        }
    }
    return *best;
}

void SketchPainter::noteOutline(const QPainterPath& shape) {
    for (const QPolygonF& polygon : shape.toSubpathPolygons()) {
        for (qsizetype i = 1; i < polygon.size(); ++i) {
            outline_.emplace_back(polygon[i - 1], polygon[i]);
        }
    }
}

void SketchPainter::draw(const screen::Path& path) {
    if (!isShown(path.label)) {
        return;
    }
    QPainterPath shape;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        const QPointF point = map(path.points[i]);
        i == 0 ? shape.moveTo(point) : shape.lineTo(point);
    }
    if (path.closed) {
        shape.closeSubpath();
    }
    drawShape(shape, path.pen, path.fill);
}

void SketchPainter::draw(const screen::Circle& circle) {
    QPainterPath shape;
    shape.addEllipse(map(circle.centre), circle.radius * scale_, circle.radius * scale_);
    drawShape(shape, circle.pen, circle.fill);
}

void SketchPainter::drawShape(const QPainterPath& shape, screen::Pen pen, screen::Fill fill) {
    switch (fill) {
        case screen::Fill::section:
            painter_.fillPath(shape, QColor(sectionMetal));
            drawHatch(shape);
            break;
        case screen::Fill::solid:
            painter_.fillPath(shape, QColor(metal));
            break;
        case screen::Fill::blank:
            painter_.fillPath(shape, Qt::white);
            break;
        case screen::Fill::none:
            break;
    }
    painter_.strokePath(shape, penOf(pen));
    if (pen == screen::Pen::outline || pen == screen::Pen::thin) {
        noteOutline(shape);
    }
}

void SketchPainter::drawHatch(const QPainterPath& shape) {
    const QRectF box = shape.boundingRect();
    painter_.save();
    painter_.setClipPath(shape, Qt::IntersectClip);
    painter_.setPen(QPen(QColor(hatchInk), 0.8));
    const double height = box.height();
    // One raster for all sections of a drawing, so that neighbouring ones hatch alike.
    const double first = std::floor((box.left() - height - box.bottom()) / hatchSpacing) * hatchSpacing + box.bottom();
    for (double x = first; x < box.right(); x += hatchSpacing) {
        painter_.drawLine(QPointF(x, box.bottom()), QPointF(x + height, box.top()));
    }
    painter_.restore();
}

void SketchPainter::draw(const screen::Dimension& dimension) {
    if (!isShown(dimension)) {
        return;
    }
    const DimensionLine line = lineOf(dimension);
    const QPointF u = unitVector(line.start, line.end);
    painter_.setPen(penOf(screen::Pen::dimension));
    for (const auto& [piece, end] : {std::pair{line.from, line.start}, std::pair{line.to, line.end}}) {
        if (QLineF(piece, end).length() > extensionGap) {
            const QPointF away = unitVector(piece, end);
            painter_.drawLine(piece + away * extensionGap, end + away * extensionOvershoot);
        }
    }
    // Arrows that have no room between the extension lines stand outside and point inwards.
    const bool inside = line.hasRoom();
    const QPointF reach = inside ? QPointF() : u * (2.2 * arrowLength);
    painter_.drawLine(line.start - reach, line.end + reach);
    drawArrow(line.start, inside ? -u : u);
    drawArrow(line.end, inside ? u : -u);
    if (!line.text.isEmpty()) {
        const TextPlace where = place(line);
        drawText(where, line.text);
        texts_.push_back(where.bounds);
    }
}

void SketchPainter::drawArrow(QPointF tip, QPointF direction) {
    const QPointF back = tip - direction * arrowLength;
    const QPointF side = normal(direction) * arrowHalfWidth;
    painter_.save();
    painter_.setBrush(QColor(dimensionInk));
    painter_.setPen(Qt::NoPen);
    painter_.drawPolygon(QPolygonF({tip, back + side, back - side}));
    painter_.restore();
}

void SketchPainter::drawText(const TextPlace& place, const QString& text) {
    const QFontMetricsF metrics(painter_.font());
    const QSizeF size(metrics.horizontalAdvance(text) + 4, metrics.height());
    const QRectF box(QPointF(-size.width() / 2, -size.height() / 2), size);
    painter_.save();
    painter_.translate(place.middle);
    painter_.rotate(place.angle);
    painter_.fillRect(box.adjusted(0, 1, 0, -1), QColor(255, 255, 255, 225));
    painter_.setPen(QColor(theme::text));
    painter_.drawText(box, Qt::AlignCenter | Qt::TextDontClip, text);
    painter_.restore();
}

void SketchPainter::draw(const screen::Caption& caption) {
    const QFontMetricsF metrics(painter_.font());
    const QString text = toQt(caption.text);
    const QSizeF size(metrics.horizontalAdvance(text) + 4, metrics.height());
    const TextPlace where{map(caption.at), 0, boundsAt(map(caption.at), size, 0)};
    drawText(where, text);
    texts_.push_back(where.bounds);
}

}  // namespace velmora::qt
