#include "velmora/estimate/drawings.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing_checks.h"
#include "drawing_probe.h"

namespace velmora::estimate {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

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

TEST(DrawingsTest, SideViewAloneIsThatOfThePieceAroundTheOrigin) {
    const Drawing whole = drawPiece(Hubs::one, ordinarySprocket());
    const Drawing view = drawSideView(Hubs::one, ordinarySprocket());
    EXPECT_THAT(labels(view), ElementsAre());
    EXPECT_THAT(circleDiameters(view), ElementsAre(147, 95));
    for (const Circle& circle : all<Circle>(view)) {
        EXPECT_DOUBLE_EQ(circle.centre.x, 0);
    }
    const auto metal = [](const Drawing& drawing) {
        std::size_t corners = 0;
        for (const Path& path : all<Path>(drawing)) {
            corners = std::max(corners, path.points.size());
        }
        return corners;
    };
    EXPECT_EQ(metal(view), metal(whole));
    EXPECT_THAT(circleDiameters(drawSideView(Hubs::none, ordinarySprocket())), ElementsAre(147));
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

TEST(DrawingsTest, WhateverAFieldHoldsThePictureIsAPiece) {
    const Fields<PieceMeasures> fields{&PieceMeasures::exterior, &PieceMeasures::pitch,    &PieceMeasures::root,
                                       &PieceMeasures::hub,      &PieceMeasures::bore,     &PieceMeasures::keyway,
                                       &PieceMeasures::rim,      &PieceMeasures::hubWidth, &PieceMeasures::totalWidth};
    for (const Hubs hubs : {Hubs::none, Hubs::one, Hubs::two}) {
        for (const Toothing toothing : {Toothing::chain, Toothing::gear, Toothing::smooth}) {
            PieceMeasures ordinary = ordinarySprocket();
            ordinary.toothing = toothing;
            PieceMeasures bare;
            bare.toothing = toothing;
            bare.teeth = 17;
            withAbsurdFields(ordinary, bare, fields,
                             [&](const PieceMeasures& measures) { expectAPiece(drawPiece(hubs, measures)); });
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
            expectLegible(drawPiece(hubs, measures), lettersOf);
        }
    }
}

}  // namespace
}  // namespace velmora::estimate
