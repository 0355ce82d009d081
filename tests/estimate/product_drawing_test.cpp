#include "velmora/estimate/product_drawing.h"

#include <map>
#include <set>
#include <variant>

#include <gtest/gtest.h>

#include "velmora/data/product_types.h"
#include "velmora/estimate/multiple_drawings.h"
#include "velmora/estimate/rack_drawing.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/sketch_plan.h"

#include "drawing_probe.h"

namespace velmora::estimate {
namespace {

ProductMeasures allMeasures() {
    return {.teeth = 21,
            .pitch = 12.7,
            .module = 4,
            .exterior = 127.5,
            .pitchDiameter = 121.5,
            .root = 113,
            .bore = 25,
            .keyway = 8,
            .hub = 80,
            .hubWidth = 32.4,
            .secondHub = 60,
            .secondHubWidth = 30,
            .rim = 7.2,
            .totalWidth = 72,
            .chainRim = 7,
            .gap = 9.5,
            .coreHeight = 16.5,
            .toothHeight = 9,
            .height = 40,
            .length = 1000,
            .width = 30};
}

std::set<int> labelsIn(const screen::Drawing& drawing) {
    std::set<int> labels;
    for (const screen::Shape& shape : drawing.shapes) {
        if (const auto* dimension = std::get_if<screen::Dimension>(&shape); dimension && dimension->label >= 0) {
            labels.insert(dimension->label);
        }
    }
    return labels;
}

bool hasSeveralRims(const data::ProductType& type) {
    return type.shape == data::ProductShape::twoRims || type.shape == data::ProductShape::threeRims;
}

int totalOfSeveralRims(const data::ProductType& type) {
    return type.shape == data::ProductShape::twoRims ? static_cast<int>(DoubleLabel::totalWidth)
                                                     : static_cast<int>(TripleLabel::totalWidth);
}

/// The labels of the total widths that reach beyond the rims.
std::set<int> totalLabels(const data::ProductType& type) {
    if (hasSeveralRims(type)) {
        return type.hasHub() ? std::set{totalOfSeveralRims(type)} : std::set<int>();
    }
    switch (type.hubs) {
        case data::Hubs::none:
            return {};
        case data::Hubs::twoAlike:
            return {static_cast<int>(PieceLabel::totalWidth), static_cast<int>(PieceLabel::totalWidthOfTwoHubs)};
        case data::Hubs::twoUnlike:
            return {static_cast<int>(VariableLabel::totalWidth)};
        default:
            return type.shape == data::ProductShape::rack ? std::set<int>()
                                                          : std::set{static_cast<int>(PieceLabel::totalWidth)};
    }
}

class ProductDrawing : public ::testing::TestWithParam<int> {};

TEST_P(ProductDrawing, EveryPlaceOfTheDrawingHasAText) {
    std::set<int> texts;
    for (const auto& [label, text] : drawingLabels(GetParam(), allMeasures())) {
        EXPECT_FALSE(text.empty()) << label;
        texts.insert(label);
    }
    std::set<int> places = labelsIn(drawProduct(GetParam(), allMeasures()));
    const data::ProductType& type = data::productType(GetParam());
    if (hasSeveralRims(type) && !type.hasHub()) {
        // The rims are all there is: one width says it.
        places.erase(totalOfSeveralRims(type));
    }
    EXPECT_EQ(texts, places);
}

TEST_P(ProductDrawing, WithoutMeasuresItIsAPieceWithoutTexts) {
    EXPECT_FALSE(drawProduct(GetParam(), {}).shapes.empty());
    EXPECT_TRUE(drawingLabels(GetParam(), {}).empty());
}

TEST_P(ProductDrawing, WhatLeadsOutToATotalWidthOrTheBoreBelongsToItsDimension) {
    const screen::Drawing drawing = drawProduct(GetParam(), allMeasures());
    std::set<int> ledOut;
    for (const screen::Shape& shape : drawing.shapes) {
        if (const auto* path = std::get_if<screen::Path>(&shape); path && path->label >= 0) {
            EXPECT_EQ(path->pen, screen::Pen::dimension);
            ledOut.insert(path->label);
        }
    }
    std::set<int> expected = totalLabels(data::productType(GetParam()));
    if (data::productType(GetParam()).shape != data::ProductShape::rack) {
        expected.insert(boreLabel);
    }
    EXPECT_EQ(ledOut, expected);
}

TEST_P(ProductDrawing, TheBoreOfAWheelIsDimensionedInItsDiameter) {
    const data::ProductType& type = data::productType(GetParam());
    const screen::Drawing drawing = drawProduct(GetParam(), allMeasures());
    const std::map<int, std::string> texts = drawingLabels(GetParam(), allMeasures());
    if (type.shape == data::ProductShape::rack) {
        EXPECT_FALSE(texts.contains(boreLabel));
        return;
    }
    EXPECT_DOUBLE_EQ(measured(drawing, boreLabel), *allMeasures().bore);
    EXPECT_EQ(texts.at(boreLabel), "Ø eje " + runtime::CStr(*allMeasures().bore));
    ProductMeasures solid = allMeasures();
    solid.bore.reset();
    EXPECT_FALSE(drawingLabels(GetParam(), solid).contains(boreLabel));
}

/// On the least canvases of the customer's paper and of the shop's with one rim or several.
TEST_P(ProductDrawing, NoTextIsOnAnotherOrOffTheCanvas) {
    for (const double height : {283.0, 242.0}) {
        const toolkit::PixelRect canvas{.left = 0, .top = 0, .width = 665, .height = height};
        const auto plan =
            toolkit::planSketch(drawProduct(GetParam(), allMeasures()), drawingLabels(GetParam(), allMeasures()),
                                canvas, [](const std::string& text) {
                                    const auto letters = static_cast<double>(runtime::toCodePoints(text).size());
                                    return toolkit::PixelSize{.width = 6.5 * letters, .height = 14};
                                });
        std::vector<toolkit::PlacedText> texts;
        for (const toolkit::PlannedShape& shape : plan.shapes) {
            if (const auto* dimension = std::get_if<toolkit::PlannedDimension>(&shape); dimension && dimension->text) {
                texts.push_back(*dimension->text);
            }
        }
        for (std::size_t one = 0; one < texts.size(); ++one) {
            EXPECT_TRUE(canvas.contains(texts[one].bounds)) << height << ' ' << texts[one].text;
            for (std::size_t other = one + 1; other < texts.size(); ++other) {
                EXPECT_FALSE(texts[one].bounds.overlaps(texts[other].bounds))
                    << height << ' ' << texts[one].text << " and " << texts[other].text;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryType, ProductDrawing,
                         ::testing::Range(-1, static_cast<int>(data::productTypes.size()) + 1));

TEST(ProductDrawings, HubsOfAPieceWithOneRimFollowTheType) {
    const std::map<int, Hubs> expected{{0, Hubs::one}, {1, Hubs::none}, {2, Hubs::two},
                                       {3, Hubs::two}, {8, Hubs::one},  {9, Hubs::none}};
    for (const data::ProductType& type : data::productTypes) {
        const auto row = expected.find(type.number);
        ASSERT_EQ(row != expected.end(), type.shape == data::ProductShape::oneRim) << type.name;
        if (row != expected.end()) {
            EXPECT_EQ(hubsOf(type.number), row->second) << type.name;
        }
    }
}

TEST(ProductDrawings, ATypeThatNobodyKnowsHasOneHub) {
    EXPECT_EQ(hubsOf(-1), Hubs::one);
    EXPECT_EQ(hubsOf(99), Hubs::one);
}

TEST(ProductDrawings, TextsAreInTheLocalesFormAndZeroIsNone) {
    ProductMeasures measures = allMeasures();
    measures.hub = 0;
    const auto labels = drawingLabels(0, measures);
    EXPECT_EQ(labels.at(static_cast<int>(PieceLabel::exterior)), "Ø exterior 127,5");
    EXPECT_EQ(labels.at(static_cast<int>(PieceLabel::hubWidth)), "Cubo 32,4");
    EXPECT_FALSE(labels.contains(static_cast<int>(PieceLabel::hub)));
}

TEST(ProductDrawings, WhatIsSummedIsSummed) {
    const auto variable = drawingLabels(10, allMeasures());
    EXPECT_EQ(variable.at(static_cast<int>(VariableLabel::totalWidth)), "69,6");
    const auto rack = drawingLabels(13, allMeasures());
    EXPECT_EQ(rack.at(static_cast<int>(RackLabel::bodyHeight)), "31");
    EXPECT_EQ(rack.at(static_cast<int>(RackLabel::length)), "1000");
}

}  // namespace
}  // namespace velmora::estimate
