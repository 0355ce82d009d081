#include "velmora/estimate/multiple_drawings.h"

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing_checks.h"
#include "drawing_probe.h"

namespace velmora::estimate {
namespace {

using screen::Pen;
using screen::TextPlace;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

MultipleMeasures ordinaryDouble() {
    MultipleMeasures measures;
    measures.teeth = 15;
    measures.exterior = 83;
    measures.pitch = 76.35;
    measures.root = 66.19;
    measures.bore = 12;
    measures.keyway = 0;
    measures.chainRim = 9;
    measures.gap = 16.5;
    measures.rim = 34.5;
    measures.coreHeight = 16.5;
    measures.hub = 50;
    measures.hubWidth = 20;
    return measures;
}

MultipleMeasures ordinaryTriple() {
    MultipleMeasures measures = ordinaryDouble();
    measures.rim = 60;
    return measures;
}

VariableMeasures ordinaryVariable() {
    VariableMeasures measures;
    measures.teeth = 25;
    measures.exterior = 107;
    measures.pitch = 101.33;
    measures.root = 92.82;
    measures.bore = 20;
    measures.keyway = 0;
    measures.hubA = 70;
    measures.hubAWidth = 39;
    measures.rim = 6;
    measures.hubB = 45;
    measures.hubBWidth = 25;
    return measures;
}

/// The teeth in the section above the axis, as their places along it.
std::vector<Box> teethAbove(const Drawing& drawing) {
    const double section = cutMetal(drawing).right;
    std::vector<Box> found;
    for (const Path& path : all<Path>(drawing)) {
        Box box;
        addTo(box, path);
        if (path.fill == Fill::solid && box.right <= section + 1e-9 && box.bottom > 0) {
            found.push_back(box);
        }
    }
    return found;
}

std::string captionOf(const Drawing& drawing, int label) {
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        if (dimension.label == label) {
            return dimension.caption;
        }
    }
    return "no such dimension";
}

TEST(MultipleDrawingsTest, EveryLabelOfTheDoubleHasItsPlace) {
    EXPECT_THAT(labels(drawMultiple(Rims::two, true, ordinaryDouble())),
                UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8));
}

TEST(MultipleDrawingsTest, EveryLabelOfTheTripleHasItsPlace) {
    EXPECT_THAT(labels(drawMultiple(Rims::three, true, ordinaryTriple())),
                UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}

TEST(MultipleDrawingsTest, DiscsHaveNoLinesOfAHub) {
    EXPECT_THAT(labels(drawMultiple(Rims::two, false, ordinaryDouble())), UnorderedElementsAre(0, 2, 3, 4, 6, 7, 8));
    EXPECT_THAT(labels(drawMultiple(Rims::three, false, ordinaryTriple())),
                UnorderedElementsAre(0, 2, 3, 4, 5, 6, 7, 9, 10));
}

TEST(MultipleDrawingsTest, DoubleIsDrawnToScale) {
    const Drawing drawing = drawMultiple(Rims::two, true, ordinaryDouble());
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::exterior), 83);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::hub), 50);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::coreHeight), 16.5);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::firstRim), 9);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::gap), 16.5);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::secondRim), 9);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::rim), 34.5);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::hubWidth), 20);
    EXPECT_DOUBLE_EQ(measured(drawing, DoubleLabel::totalWidth), 54.5);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).width(), 54.5);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).height(), 66.19);
    EXPECT_THAT(circleDiameters(drawing), ElementsAre(76.35, 50, 12));
}

TEST(MultipleDrawingsTest, TripleIsDrawnToScale) {
    const Drawing drawing = drawMultiple(Rims::three, true, ordinaryTriple());
    for (const TripleLabel rim : {TripleLabel::firstRim, TripleLabel::secondRim, TripleLabel::thirdRim}) {
        EXPECT_NEAR(measured(drawing, rim), 9, 1e-9);
    }
    EXPECT_NEAR(measured(drawing, TripleLabel::firstGap), 16.5, 1e-9);
    EXPECT_NEAR(measured(drawing, TripleLabel::secondGap), 16.5, 1e-9);
    EXPECT_DOUBLE_EQ(measured(drawing, TripleLabel::rim), 60);
    EXPECT_DOUBLE_EQ(measured(drawing, TripleLabel::totalWidth), 80);
}

TEST(MultipleDrawingsTest, TeethStandOnEachRim) {
    const std::vector<Box> two = teethAbove(drawMultiple(Rims::two, true, ordinaryDouble()));
    ASSERT_EQ(two.size(), 2);
    EXPECT_DOUBLE_EQ(two[0].left, 20);
    EXPECT_DOUBLE_EQ(two[0].right, 29);
    EXPECT_DOUBLE_EQ(two[1].left, 45.5);
    EXPECT_EQ(teethAbove(drawMultiple(Rims::three, false, ordinaryTriple())).size(), 3);
}

TEST(MultipleDrawingsTest, WithoutAHubTheRimsBeginAtTheFace) {
    const Drawing disc = drawMultiple(Rims::two, false, ordinaryDouble());
    EXPECT_DOUBLE_EQ(cutMetal(disc).width(), 34.5);
    EXPECT_DOUBLE_EQ(measured(disc, DoubleLabel::totalWidth), 34.5);
    EXPECT_THAT(circleDiameters(disc), ElementsAre(76.35, 12)) << "no hub is seen from the side";
}

TEST(MultipleDrawingsTest, ChainRimAndGapPrevailOverTheirSum) {
    MultipleMeasures measures = ordinaryDouble();
    measures.rim = 90;
    EXPECT_DOUBLE_EQ(measured(drawMultiple(Rims::two, true, measures), DoubleLabel::rim), 34.5);
}

TEST(MultipleDrawingsTest, MissingWidthsFollowThoseThatAreThere) {
    MultipleMeasures withoutGap = ordinaryDouble();
    withoutGap.gap.reset();
    EXPECT_DOUBLE_EQ(measured(drawMultiple(Rims::two, true, withoutGap), DoubleLabel::gap), 16.5);
    MultipleMeasures rimAlone = withoutGap;
    rimAlone.chainRim.reset();
    EXPECT_NEAR(measured(drawMultiple(Rims::two, true, rimAlone), DoubleLabel::rim), 34.5, 1e-9);
    rimAlone.rim = 60;
    EXPECT_NEAR(measured(drawMultiple(Rims::three, true, rimAlone), TripleLabel::rim), 60, 1e-9);
}

TEST(MultipleDrawingsTest, CoreOfUnknownHeightIsLevelWithTheHub) {
    MultipleMeasures measures = ordinaryDouble();
    measures.coreHeight.reset();
    EXPECT_DOUBLE_EQ(measured(drawMultiple(Rims::two, true, measures), DoubleLabel::coreHeight), (83 - 50) / 2.0);
}

TEST(MultipleDrawingsTest, NoMeasuresAtAllGiveAnOrdinaryPiece) {
    for (const bool withHub : {true, false}) {
        const Drawing two = drawMultiple(Rims::two, withHub, {});
        EXPECT_DOUBLE_EQ(measured(two, DoubleLabel::exterior), 160);
        EXPECT_GT(measured(two, DoubleLabel::gap), measured(two, DoubleLabel::firstRim));
        EXPECT_EQ(teethAbove(drawMultiple(Rims::three, withHub, {})).size(), 3);
    }
}

TEST(MultipleDrawingsTest, EveryDimensionSaysWhatItIs) {
    const Drawing two = drawMultiple(Rims::two, true, ordinaryDouble());
    const char* const captionsOfTwo[] = {"De", "Dm", "H1", "A", "B2", "Cubo", "b1", "X", "b1"};
    for (int label = 0; label < 9; ++label) {
        EXPECT_EQ(captionOf(two, label), captionsOfTwo[label]);
    }
    const Drawing three = drawMultiple(Rims::three, true, ordinaryTriple());
    const char* const captionsOfThree[] = {"De", "Dm", "H1", "b1", "X", "b1", "X", "b1", "Cubo", "B3", "A"};
    for (int label = 0; label < 11; ++label) {
        EXPECT_EQ(captionOf(three, label), captionsOfThree[label]);
    }
}

TEST(VariableDrawingsTest, EveryLabelHasItsPlace) {
    EXPECT_THAT(labels(drawVariable(ordinaryVariable())), UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6));
}

TEST(VariableDrawingsTest, HubsAreDrawnToScaleEachByItself) {
    const Drawing drawing = drawVariable(ordinaryVariable());
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::hubA), 70);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::hubB), 45);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::hubAWidth), 39);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::hubBWidth), 25);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::rim), 6);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::totalWidth), 70);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::exterior), 107);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).width(), 70);
    EXPECT_DOUBLE_EQ(labelled(drawing, VariableLabel::hubA).from.x, 0);
    EXPECT_DOUBLE_EQ(labelled(drawing, VariableLabel::hubB).from.x, 70);
}

TEST(VariableDrawingsTest, HubBehindTheRimIsSeenAsAHiddenEdge) {
    const auto hidden = [](const Drawing& drawing) {
        std::vector<double> diameters;
        for (const Circle& circle : all<Circle>(drawing)) {
            if (circle.pen == Pen::hidden) {
                diameters.push_back(2 * circle.radius);
            }
        }
        return diameters;
    };
    EXPECT_THAT(hidden(drawVariable(ordinaryVariable())), ElementsAre());
    VariableMeasures measures = ordinaryVariable();
    measures.hubB = 80;
    EXPECT_THAT(hidden(drawVariable(measures)), ElementsAre(80));
}

TEST(VariableDrawingsTest, PulleyHasASmoothRim) {
    VariableMeasures measures = ordinaryVariable();
    measures.toothing = Toothing::smooth;
    const Drawing drawing = drawVariable(measures);
    EXPECT_DOUBLE_EQ(cutMetal(drawing).height(), 107);
    EXPECT_TRUE(teethAbove(drawing).empty());
    EXPECT_THAT(circleDiameters(drawing), ElementsAre(107, 70, 20));
}

TEST(VariableDrawingsTest, NoMeasuresAtAllGiveAnOrdinaryPiece) {
    const Drawing drawing = drawVariable({});
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::exterior), 160);
    EXPECT_DOUBLE_EQ(measured(drawing, VariableLabel::hubA), measured(drawing, VariableLabel::hubB));
}

const Fields<MultipleMeasures> multipleFields{
    &MultipleMeasures::exterior,   &MultipleMeasures::pitch,    &MultipleMeasures::root,     &MultipleMeasures::bore,
    &MultipleMeasures::keyway,     &MultipleMeasures::chainRim, &MultipleMeasures::gap,      &MultipleMeasures::rim,
    &MultipleMeasures::coreHeight, &MultipleMeasures::hub,      &MultipleMeasures::hubWidth,
};
const Fields<VariableMeasures> variableFields{
    &VariableMeasures::exterior, &VariableMeasures::pitch,     &VariableMeasures::root,      &VariableMeasures::bore,
    &VariableMeasures::keyway,   &VariableMeasures::hubA,      &VariableMeasures::hubAWidth, &VariableMeasures::rim,
    &VariableMeasures::hubB,     &VariableMeasures::hubBWidth,
};

/// A piece of so many teeth of which nothing else is known.
template <typename Measures>
Measures teethAlone() {
    Measures measures;
    measures.teeth = 17;
    return measures;
}

TEST(MultipleDrawingsTest, WhateverAFieldHoldsThePictureIsAPiece) {
    for (const Rims rims : {Rims::two, Rims::three}) {
        for (const bool withHub : {true, false}) {
            withAbsurdFields(
                rims == Rims::two ? ordinaryDouble() : ordinaryTriple(), teethAlone<MultipleMeasures>(), multipleFields,
                [&](const MultipleMeasures& measures) { expectAPiece(drawMultiple(rims, withHub, measures)); });
        }
    }
}

TEST(VariableDrawingsTest, WhateverAFieldHoldsThePictureIsAPiece) {
    for (const Toothing toothing : {Toothing::chain, Toothing::smooth}) {
        withAbsurdFields(ordinaryVariable(), teethAlone<VariableMeasures>(), variableFields,
                         [&](VariableMeasures measures) {
                             measures.toothing = toothing;
                             expectAPiece(drawVariable(measures));
                         });
    }
}

/// Where the letters of a dimension come to lie on the smallest canvas, as wide as "Cubo 16,51".
Box lettersOfMultiple(const Dimension& dimension, double pixel) {
    const auto [from, to] = lineOf(dimension);
    const double along = length(dimension);
    const Point direction{(to.x - from.x) / along, (to.y - from.y) / along};
    const double wide = 62 * pixel;
    const double clearance = (along > 24 * pixel ? 4 : 20) * pixel;
    const double outside = dimension.place == TextPlace::middle ? 0 : along / 2 + wide / 2 + clearance;
    const double shift = dimension.place == TextPlace::beforeFrom ? -outside : outside;
    const Point middle{(from.x + to.x) / 2 + direction.x * shift, (from.y + to.y) / 2 + direction.y * shift};
    const bool upright = std::abs(direction.y) > 0.5;
    const double x = upright ? 8 * pixel : wide / 2;
    const double y = upright ? wide / 2 : 8 * pixel;
    return {middle.x - x, middle.y - y, middle.x + x, middle.y + y};
}

TEST(MultipleDrawingsTest, LabelsKeepClearOfEachOtherAndOfTheMetal) {
    MultipleMeasures large = ordinaryDouble();
    large.exterior = 784;
    large.pitch = 768;
    large.root = 752;
    large.hub = 160;
    large.coreHeight = 40;
    for (const bool withHub : {true, false}) {
        for (const MultipleMeasures& measures : {ordinaryDouble(), large, MultipleMeasures{}}) {
            SCOPED_TRACE(withHub ? "hub" : "disc");
            SCOPED_TRACE(measures.exterior.value_or(0));
            expectLegible(drawMultiple(Rims::two, withHub, measures), lettersOfMultiple);
            expectLegible(drawMultiple(Rims::three, withHub, measures), lettersOfMultiple);
        }
    }
}

TEST(VariableDrawingsTest, LabelsKeepClearOfEachOtherAndOfTheMetal) {
    expectLegible(drawVariable(ordinaryVariable()), lettersOfMultiple);
    expectLegible(drawVariable({}), lettersOfMultiple);
}

}  // namespace
}  // namespace velmora::estimate
