#include "velmora/estimate/drawings.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <variant>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::estimate {
namespace {

using screen::Circle;
using screen::Dimension;
using screen::Drawing;
using screen::Fill;
using screen::Path;
using screen::Pen;
using screen::Point;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

PieceMeasures ordinarySprocket() {
    PieceMeasures measures;
    measures.teeth = 17;
    measures.exterior = 159;
    measures.pitch = 147;
    measures.root = 131;
    measures.hub = 95;
    measures.bore = 30;
    measures.keyway = 8;
    measures.rim = 14;
    measures.hubWidth = 40;
    measures.totalWidth = 54;
    return measures;
}

template <typename Shape>
std::vector<Shape> all(const Drawing& drawing) {
    std::vector<Shape> found;
    for (const auto& shape : drawing.shapes) {
        if (const auto* match = std::get_if<Shape>(&shape)) {
            found.push_back(*match);
        }
    }
    return found;
}

std::vector<int> labels(const Drawing& drawing) {
    std::vector<int> numbers;
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        numbers.push_back(dimension.label);
    }
    return numbers;
}

Dimension labelled(const Drawing& drawing, PieceLabel label) {
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        if (dimension.label == static_cast<int>(label)) {
            return dimension;
        }
    }
    ADD_FAILURE() << "no dimension with label " << static_cast<int>(label);
    return {};
}

double length(const Dimension& dimension) {
    return std::hypot(dimension.to.x - dimension.from.x, dimension.to.y - dimension.from.y);
}

double measured(const Drawing& drawing, PieceLabel label) {
    return length(labelled(drawing, label));
}

/// The ends of the dimension line itself.
std::pair<Point, Point> lineOf(const Dimension& dimension) {
    const double along = length(dimension);
    const double x = -(dimension.to.y - dimension.from.y) / along * dimension.offset;
    const double y = (dimension.to.x - dimension.from.x) / along * dimension.offset;
    return {{dimension.from.x + x, dimension.from.y + y}, {dimension.to.x + x, dimension.to.y + y}};
}

struct Box {
    double left = infinity;
    double bottom = infinity;
    double right = -infinity;
    double top = -infinity;

    void add(Point point) {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        bottom = std::min(bottom, point.y);
        top = std::max(top, point.y);
    }
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    bool meets(const Box& other) const {
        return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
    }
};

void addTo(Box& box, const Path& path) {
    for (const Point& point : path.points) {
        box.add(point);
    }
}

void addTo(Box& box, const Circle& circle) {
    box.add({circle.centre.x - circle.radius, circle.centre.y - circle.radius});
    box.add({circle.centre.x + circle.radius, circle.centre.y + circle.radius});
}

void addTo(Box& box, const Dimension& dimension) {
    const auto [from, to] = lineOf(dimension);
    box.add(dimension.from);
    box.add(dimension.to);
    box.add(from);
    box.add(to);
}

void addTo(Box& box, const screen::Caption& caption) {
    box.add(caption.at);
}

Box bounds(const Drawing& drawing) {
    Box box;
    for (const auto& shape : drawing.shapes) {
        std::visit([&](const auto& one) { addTo(box, one); }, shape);
    }
    return box;
}

/// The boxes of what is filled: the metal, cut or seen from the side.
std::vector<Box> metal(const Drawing& drawing) {
    std::vector<Box> boxes;
    for (const auto& shape : drawing.shapes) {
        std::visit(
            [&]([[maybe_unused]] const auto& one) {
                if constexpr (requires { one.fill; }) {
                    if (one.fill == Fill::section || one.fill == Fill::solid) {
                        addTo(boxes.emplace_back(), one);
                    }
                }
            },
            shape);
    }
    return boxes;
}

Box cutMetal(const Drawing& drawing) {
    Box box;
    for (const Path& path : all<Path>(drawing)) {
        if (path.fill == Fill::section) {
            addTo(box, path);
        }
    }
    return box;
}

int teethSeen(const Drawing& drawing) {
    // The outline with teeth is the metal that is seen, has teeth's corners, and lies to the right of the section.
    const double section = cutMetal(drawing).right;
    for (const Path& path : all<Path>(drawing)) {
        if (path.fill != Fill::solid || path.points.front().x <= section) {
            continue;
        }
        Box box;
        addTo(box, path);
        const Point centre{(box.left + box.right) / 2, 0};
        std::vector<double> radii;
        for (const Point& point : path.points) {
            radii.push_back(std::hypot(point.x - centre.x, point.y - centre.y));
        }
        const auto [lowest, highest] = std::minmax_element(radii.begin(), radii.end());
        const double middle = (*lowest + *highest) / 2;
        int rises = 0;
        for (std::size_t index = 0; index < radii.size(); ++index) {
            const double next = radii[(index + 1) % radii.size()];
            rises += radii[index] < middle && next >= middle ? 1 : 0;
        }
        return rises;
    }
    return 0;
}

std::vector<double> circleDiameters(const Drawing& drawing) {
    std::vector<double> diameters;
    for (const Circle& circle : all<Circle>(drawing)) {
        diameters.push_back(2 * circle.radius);
    }
    return diameters;
}

bool isFinite(const Drawing& drawing) {
    for (const auto& shape : drawing.shapes) {
        Box box;
        std::visit([&](const auto& one) { addTo(box, one); }, shape);
        // The box of something infinite has no finite size, and a value that is no number leaves it untouched.
        if (!std::isfinite(box.width()) || !std::isfinite(box.height())) {
            return false;
        }
        if (const auto* path = std::get_if<Path>(&shape)) {
            for (const Point& point : path->points) {
                if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
                    return false;
                }
            }
        }
    }
    return true;
}

TEST(DrawingsTest, OneHubHasTheLabelsOfOneHub) {
    EXPECT_THAT(labels(drawPiece(Hubs::one, ordinarySprocket())), UnorderedElementsAre(0, 1, 2, 3, 4));
}

TEST(DrawingsTest, TwoHubsHaveTheLabelsOfBoth) {
    EXPECT_THAT(labels(drawPiece(Hubs::two, ordinarySprocket())), UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6));
}

TEST(DrawingsTest, DiscKeepsTheLineOfItsWidth) {
    const Drawing disc = drawPiece(Hubs::none, ordinarySprocket());
    EXPECT_THAT(labels(disc), UnorderedElementsAre(0, 2));
    EXPECT_DOUBLE_EQ(measured(disc, PieceLabel::rim), 14);
}

TEST(DrawingsTest, OneHubIsDrawnToScale) {
    const Drawing drawing = drawPiece(Hubs::one, ordinarySprocket());
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::exterior), 159);
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::hub), 95);
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::rim), 14);
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::hubWidth), 40);
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::totalWidth), 54);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).width(), 54);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).height(), 131);
    EXPECT_THAT(circleDiameters(drawing), ElementsAre(147, 95));
}

TEST(DrawingsTest, BothTotalWidthsMeasureTheWholePiece) {
    const Drawing drawing = drawPiece(Hubs::two, ordinarySprocket());
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::secondHubWidth), 40);
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::totalWidth), 94);
    EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::totalWidthOfTwoHubs), 94);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).width(), 94);
}

TEST(DrawingsTest, ToothIsNarrowerAtItsTipThanTheRim) {
    const auto tipWidth = [](Toothing toothing) {
        PieceMeasures measures = ordinarySprocket();
        measures.toothing = toothing;
        Box tip;
        for (const Path& path : all<Path>(drawPiece(Hubs::one, measures))) {
            for (const Point& point : path.points) {
                if (path.fill == Fill::solid && point.x <= 54 && std::abs(point.y - 79.5) < 1e-9) {
                    tip.add(point);
                }
            }
        }
        return tip.width();
    };
    EXPECT_LT(tipWidth(Toothing::chain), 10);
    EXPECT_GT(tipWidth(Toothing::chain), 4);
    EXPECT_DOUBLE_EQ(tipWidth(Toothing::gear), 14);
}

TEST(DrawingsTest, SideViewHasAsManyTeethAsThePiece) {
    for (const Toothing toothing : {Toothing::chain, Toothing::gear}) {
        for (const int teeth : {5, 6, 9, 17, 38, 95, 110}) {
            PieceMeasures measures = ordinarySprocket();
            measures.toothing = toothing;
            measures.teeth = teeth;
            EXPECT_EQ(teethSeen(drawPiece(Hubs::one, measures)), teeth);
        }
    }
}

TEST(DrawingsTest, CirclesStandForTeethThatAreUnknownOrTooMany) {
    for (const std::optional<int> teeth : {std::optional<int>{}, {0}, {-17}, {4}, {111}, {1000000}}) {
        PieceMeasures measures = ordinarySprocket();
        measures.teeth = teeth;
        EXPECT_THAT(circleDiameters(drawPiece(Hubs::one, measures)), ElementsAre(159, 131, 147, 95));
    }
}

TEST(DrawingsTest, PulleyHasASmoothRimUpToItsExterior) {
    PieceMeasures measures = ordinarySprocket();
    measures.toothing = Toothing::smooth;
    const Drawing drawing = drawPiece(Hubs::two, measures);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).height(), 159);
    EXPECT_THAT(circleDiameters(drawing), ElementsAre(159, 95));
}

TEST(DrawingsTest, KeywayOfZeroLeavesThePlainBore) {
    PieceMeasures measures = ordinarySprocket();
    measures.keyway = 0;
    EXPECT_THAT(circleDiameters(drawPiece(Hubs::one, measures)), ElementsAre(147, 95, 30));
    measures.keyway.reset();
    EXPECT_THAT(circleDiameters(drawPiece(Hubs::one, measures)), ElementsAre(147, 95));
}

TEST(DrawingsTest, NoMeasuresAtAllGiveAnOrdinaryPiece) {
    for (const Hubs hubs : {Hubs::none, Hubs::one, Hubs::two}) {
        const Drawing drawing = drawPiece(hubs, {});
        EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::exterior), 160);
        EXPECT_GT(measured(drawing, PieceLabel::rim), 10);
    }
}

TEST(DrawingsTest, MissingMeasuresFollowThoseThatAreThere) {
    PieceMeasures measures;
    measures.pitch = 930;
    const Drawing drawing = drawPiece(Hubs::one, measures);
    EXPECT_NEAR(measured(drawing, PieceLabel::exterior), 1000, 1e-6);
    EXPECT_NEAR(measured(drawing, PieceLabel::hub), 580, 1e-6);
    EXPECT_NEAR(measured(drawing, PieceLabel::rim), 120, 1e-6);

    PieceMeasures withTotal = ordinarySprocket();
    withTotal.hubWidth.reset();
    EXPECT_DOUBLE_EQ(measured(drawPiece(Hubs::one, withTotal), PieceLabel::hubWidth), 40);
    EXPECT_DOUBLE_EQ(measured(drawPiece(Hubs::two, withTotal), PieceLabel::secondHubWidth), 20);
}

TEST(DrawingsTest, OneAbsurdMeasureLeavesTheOthersToScale) {
    for (const double absurd : {-95.0, 0.0, 131.0, 1e9, nan, infinity, -infinity}) {
        PieceMeasures measures = ordinarySprocket();
        measures.hub = absurd;
        const Drawing drawing = drawPiece(Hubs::one, measures);
        EXPECT_NEAR(measured(drawing, PieceLabel::hub), 0.58 * 159, 1e-9) << absurd;
        EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::exterior), 159);
        EXPECT_DOUBLE_EQ(measured(drawing, PieceLabel::hubWidth), 40);
    }
}

constexpr double nasty[] = {nan,  infinity, -infinity, 0,    -1,     -1e308, 1e308, 1e-308, 1e-9,
                            0.01, 0.999,    1.001,     30,   95,     131,    147,   159,    160,
                            1e4,  19999.9,  20001,     1e15, 5e-324, 94.9,   95.1,  130.99, 131.1};

void expectAPiece(const Drawing& drawing) {
    ASSERT_TRUE(isFinite(drawing));
    const Box box = bounds(drawing);
    EXPECT_LT(box.width(), 20 * box.height());
    EXPECT_LT(box.height(), 20 * box.width());
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        EXPECT_GT(length(dimension), 0.005 * box.height()) << "label " << dimension.label;
        EXPECT_GT(dimension.offset, 0) << "label " << dimension.label;
    }
    for (const Circle& circle : all<Circle>(drawing)) {
        EXPECT_GT(circle.radius, 0);
    }
    for (const Path& path : all<Path>(drawing)) {
        Box extent;
        addTo(extent, path);
        EXPECT_GT(extent.width() + extent.height(), 0);
    }
}

TEST(DrawingsTest, WhateverAFieldHoldsThePictureIsAPiece) {
    std::optional<double> PieceMeasures::*const fields[] = {
        &PieceMeasures::exterior, &PieceMeasures::pitch,    &PieceMeasures::root,
        &PieceMeasures::hub,      &PieceMeasures::bore,     &PieceMeasures::keyway,
        &PieceMeasures::rim,      &PieceMeasures::hubWidth, &PieceMeasures::totalWidth};
    for (const Hubs hubs : {Hubs::none, Hubs::one, Hubs::two}) {
        for (const Toothing toothing : {Toothing::chain, Toothing::gear, Toothing::smooth}) {
            for (const double value : nasty) {
                SCOPED_TRACE(value);
                PieceMeasures everywhere;
                everywhere.toothing = toothing;
                everywhere.teeth = 17;
                for (const auto field : fields) {
                    everywhere.*field = value;
                    PieceMeasures alone = ordinarySprocket();
                    alone.toothing = toothing;
                    alone.*field = value;
                    expectAPiece(drawPiece(hubs, alone));
                }
                expectAPiece(drawPiece(hubs, everywhere));
            }
        }
    }
}

/// Where the letters of a label come to lie on the smallest canvas: along their dimension line, around its middle.
Box lettersOf(const Dimension& dimension, double pixel) {
    constexpr double high = 16;
    constexpr double wide[] = {140, 110, 70, 75, 110, 110, 75};
    const auto [from, to] = lineOf(dimension);
    const Point middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
    const double letters = wide[dimension.label];
    const bool upright = std::abs(to.x - from.x) < std::abs(to.y - from.y);
    const double x = (upright ? high : letters) / 2 * pixel;
    const double y = (upright ? letters : high) / 2 * pixel;
    return {middle.x - x, middle.y - y, middle.x + x, middle.y + y};
}

void expectLegible(Hubs hubs, const PieceMeasures& measures) {
    const Drawing drawing = drawPiece(hubs, measures);
    const Box box = bounds(drawing);
    const double pixel = std::max(box.width() / 420, box.height() / 360);
    const std::vector<Dimension> dimensions = all<Dimension>(drawing);
    for (std::size_t one = 0; one < dimensions.size(); ++one) {
        const Box letters = lettersOf(dimensions[one], pixel);
        for (std::size_t other = one + 1; other < dimensions.size(); ++other) {
            EXPECT_FALSE(letters.meets(lettersOf(dimensions[other], pixel)))
                << "labels " << dimensions[one].label << " and " << dimensions[other].label;
        }
        for (const Box& piece : metal(drawing)) {
            EXPECT_FALSE(letters.meets(piece)) << "label " << dimensions[one].label;
        }
    }
}

TEST(DrawingsTest, LabelsKeepClearOfEachOtherAndOfTheMetal) {
    PieceMeasures pinion;
    pinion.exterior = 50;
    pinion.pitch = 45.08;
    pinion.root = 37.33;
    pinion.hub = 32;
    pinion.rim = 7;
    pinion.hubWidth = 28;
    PieceMeasures wheel;
    wheel.exterior = 784;
    wheel.pitch = 768;
    wheel.root = 752;
    wheel.hub = 120;
    wheel.rim = 16;
    wheel.hubWidth = 60;
    PieceMeasures roller = ordinarySprocket();
    roller.rim = 200;
    roller.hubWidth = 200;
    for (const Hubs hubs : {Hubs::none, Hubs::one, Hubs::two}) {
        for (const PieceMeasures& measures : {ordinarySprocket(), pinion, wheel, roller, PieceMeasures{}}) {
            expectLegible(hubs, measures);
        }
    }
}

}  // namespace
}  // namespace velmora::estimate
