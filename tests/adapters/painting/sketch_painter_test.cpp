#include "velmora/adapters/painting/sketch_painter.h"

#include <QImage>
#include <QPainter>
#include <utility>

#include <gtest/gtest.h>

#include "velmora/adapters/painting/graphics.h"

namespace velmora::painting {
namespace {

using screen::Dimension;
using screen::Drawing;
using screen::Fill;
using screen::Path;
using screen::Pen;

class SketchPainting : public ::testing::Test {
  protected:
    SketchPainting() { graphics_.require(); }

    static QImage paint(const Drawing& drawing, const toolkit::LabelTexts& labels, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        SketchPainter(painter, drawing, labels).paint(QRectF(QPointF(), QSizeF(size)));
        return image;
    }
    static QRect inked(const QImage& image) {
        QRect all;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) != QColor(Qt::white)) {
                    all |= QRect(x, y, 1, 1);
                }
            }
        }
        return all;
    }
    static Drawing box(double width, double height) {
        Drawing drawing;
        drawing.shapes.emplace_back(Path{.points = {{0, 0}, {width, 0}, {width, height}, {0, height}}, .closed = true});
        return drawing;
    }

  private:
    Graphics graphics_;
};

TEST_F(SketchPainting, ThePieceFillsTheCanvasAndKeepsItsProportions) {
    for (const double millimetres : {0.5, 1.0, 3.0}) {
        const QRect ink = inked(paint(box(200 * millimetres, 100 * millimetres), {}, {420, 400}));
        EXPECT_NEAR(ink.width(), 400, 6);
        EXPECT_NEAR(ink.height(), 200, 6);
        EXPECT_NEAR(ink.center().y(), 200, 3);
    }
}

TEST_F(SketchPainting, YGoesUp) {
    Drawing drawing = box(100, 100);
    drawing.shapes.emplace_back(
        Path{.points = {{10, 60}, {90, 60}, {90, 90}, {10, 90}}, .closed = true, .fill = Fill::solid});
    const QImage image = paint(drawing, {}, {400, 400});
    EXPECT_NE(image.pixelColor(200, 100), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(200, 300), QColor(Qt::white));
}

TEST_F(SketchPainting, APlaceWithoutALabelHasNoDimension) {
    Drawing drawing = box(100, 50);
    const QRect plain = inked(paint(drawing, {}, {400, 400}));
    drawing.shapes.emplace_back(Dimension{{0, 50}, {100, 50}, 20, 3});
    EXPECT_EQ(inked(paint(drawing, {}, {400, 400})), plain);
    const QRect measured = inked(paint(drawing, {{3, "Ancho 100"}}, {400, 400}));
    EXPECT_GT(measured.height(), measured.width() / 2 + 20);
}

TEST_F(SketchPainting, APathThatBelongsToADimensionStaysOutWithIt) {
    Drawing drawing = box(100, 50);
    const QRect plain = inked(paint(drawing, {}, {400, 400}));
    drawing.shapes.emplace_back(Path{.points = {{0, 50}, {0, 90}}, .pen = Pen::dimension, .label = 3});
    EXPECT_EQ(inked(paint(drawing, {}, {400, 400})), plain);
    EXPECT_NE(inked(paint(drawing, {{3, "Ancho 100"}}, {400, 400})), plain);
}

TEST_F(SketchPainting, ALongTextStaysOnTheCanvas) {
    Drawing drawing = box(10, 60);
    drawing.shapes.emplace_back(Dimension{{10, 60}, {10, 0}, 5, 0});
    drawing.shapes.emplace_back(Dimension{{0, 60}, {10, 60}, 5, 1});
    const QImage image =
        paint(drawing, {{0, "Diametro exterior 1.234,56"}, {1, "LLanta 10 con un texto largo"}}, {300, 260});
    const QRect ink = inked(image);
    EXPECT_TRUE(image.rect().adjusted(2, 2, -2, -2).contains(ink));
}

TEST_F(SketchPainting, ATextThatWouldRatherStandOutsideDoes) {
    Drawing drawing = box(100, 50);
    const auto inkBeside = [&](screen::TextPlace place) {
        Drawing measured = drawing;
        measured.shapes.emplace_back(Dimension{{40, 50}, {60, 50}, 20, 3, "b1", place});
        const QImage image = paint(measured, {{3, "9,1"}}, {400, 400});
        const QRect box = inked(image);
        const int level = box.top() + 8;
        int left = 0;
        int right = 0;
        for (int y = level - 8; y < level + 12; ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const bool ink = image.pixelColor(x, y).lightness() < 100;
                left += ink && x < 150 ? 1 : 0;
                right += ink && x > 250 ? 1 : 0;
            }
        }
        return std::pair(left, right);
    };
    EXPECT_EQ(inkBeside(screen::TextPlace::middle), std::pair(0, 0));
    const auto [beforeLeft, beforeRight] = inkBeside(screen::TextPlace::beforeFrom);
    EXPECT_GT(beforeLeft, 10);
    EXPECT_EQ(beforeRight, 0);
    const auto [afterLeft, afterRight] = inkBeside(screen::TextPlace::afterTo);
    EXPECT_EQ(afterLeft, 0);
    EXPECT_GT(afterRight, 10);
}

TEST_F(SketchPainting, AnEmptyDrawingPaintsNothing) {
    EXPECT_TRUE(inked(paint({}, {}, {200, 200})).isEmpty());
}

}  // namespace
}  // namespace velmora::painting
