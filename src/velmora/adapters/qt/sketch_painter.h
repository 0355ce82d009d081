#pragma once
// Paints a technical drawing: the piece scaled to fit, pens and letters in the size of the screen.

#include <QPainter>
#include <QRectF>
#include <QString>
#include <functional>
#include <map>
#include <vector>

#include "velmora/platform/screen/drawing.h"

namespace velmora::qt {

/// The text at a drawing's numbered places. A place that is missing here has its dimension left out.
using LabelTexts = std::map<int, QString>;

/// What a dimension shows: its caption before its label's text, and that text alone when it begins with a letter.
QString shownText(const screen::Dimension& dimension, const LabelTexts& labels);

class SketchPainter {
  public:
    SketchPainter(QPainter& painter, const screen::Drawing& drawing, const LabelTexts& labels);

    void paint(const QRectF& canvas);

  private:
    struct DimensionLine {
        QPointF from;  ///< on the piece
        QPointF to;
        QPointF start;  ///< the dimension line itself
        QPointF end;
        QString text;
        screen::TextPlace place = screen::TextPlace::middle;

        /// Whether both arrow heads have room between the extension lines.
        bool hasRoom() const;
    };
    /// A text's place: its middle, its size, and the angle it is read at.
    struct TextPlace {
        QPointF middle;
        double angle = 0;
        QRectF bounds;
    };

    void fit(const QRectF& canvas);
    QRectF extent(double scale) const;
    QPointF map(screen::Point point) const;
    bool isShown(const screen::Dimension& dimension) const { return isShown(dimension.label); }
    bool isShown(int label) const { return label < 0 || labels_.contains(label); }
    DimensionLine lineOf(const screen::Dimension& dimension) const;
    std::vector<TextPlace> candidates(const DimensionLine& line) const;
    TextPlace place(const DimensionLine& line) const;
    double cost(const QRectF& bounds) const;

    void draw(const screen::Path& path);
    void draw(const screen::Circle& circle);
    void draw(const screen::Dimension& dimension);
    void draw(const screen::Caption& caption);
    void drawShape(const QPainterPath& shape, screen::Pen pen, screen::Fill fill);
    void drawHatch(const QPainterPath& shape);
    void drawArrow(QPointF tip, QPointF direction);
    void drawText(const TextPlace& place, const QString& text);
    void noteOutline(const QPainterPath& shape);

    QPainter& painter_;
    const screen::Drawing& drawing_;
    const LabelTexts& labels_;
    double scale_ = 1;
    QPointF shift_;
    QRectF canvas_;
    std::vector<QLineF> outline_;
    std::vector<QRectF> texts_;
};

}  // namespace velmora::qt
