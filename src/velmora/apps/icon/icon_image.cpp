#include "velmora/apps/icon/icon_image.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>

#include "velmora/apps/icon/icon_shapes.h"

namespace velmora::icon {

namespace {

QPainterPath pathOf(const IconShape& shape) {
    QPolygonF corners;
    for (const toolkit::PixelPoint& point : shape.points) {
        corners << QPointF(point.x, point.y);
    }
    QPainterPath path;
    path.addPolygon(corners);
    if (shape.isClosed) {
        path.closeSubpath();
    }
    return path;
}

}  // namespace

QImage iconImage(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / side, size / side);
    for (const IconShape& shape : iconShapes()) {
        if (shape.isAxis && size < smallestWithAxes) {
            continue;
        }
        const QPainterPath path = pathOf(shape);
        if (shape.fill) {
            painter.fillPath(path, QColor(QRgb(*shape.fill)));
        }
        painter.strokePath(
            path, QPen(QColor(QRgb(shape.stroke)), shape.strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    return image;
}

}  // namespace velmora::icon
