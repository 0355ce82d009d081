// The texts of every type's drawing on canvases of all sizes.

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/data/product_types.h"
#include "velmora/estimate/product_drawing.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/toolkit/sketch_plan.h"

namespace velmora::estimate {
namespace {

ProductMeasures measuresOfAPiece(double factor) {
    return {.teeth = 21,
            .pitch = 12.7 * factor,
            .module = 4 * factor,
            .exterior = 127.55 * factor,
            .pitchDiameter = 121.5 * factor,
            .root = 113.12 * factor,
            .bore = 25 * factor,
            .keyway = 8 * factor,
            .hub = 80.25 * factor,
            .hubWidth = 32.45 * factor,
            .secondHub = 60.75 * factor,
            .secondHubWidth = 30.25 * factor,
            .rim = 27.25 * factor,
            .totalWidth = 72.15 * factor,
            .chainRim = 7.35 * factor,
            .gap = 9.55 * factor,
            .coreHeight = 16.55 * factor,
            .toothHeight = 9 * factor,
            .height = 40.25 * factor,
            .length = 1000 * factor,
            .width = 30.5 * factor};
}

/// Seven pixels for a letter, fifteen for a line: what a form's font needs at 100 %.
toolkit::PixelSize formLetters(const std::string& text) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    const auto letters = std::ranges::count_if(text, [&](char c) { return !continues(c); });
    return {.width = 7.0 * static_cast<double>(letters), .height = 15};
}
const toolkit::MeasureText formFont = formLetters;

/// The labels of a form, which are numbers alone.
toolkit::LabelTexts numbersOnly(const toolkit::LabelTexts& texts) {
    toolkit::LabelTexts numbers;
    for (const auto& [label, text] : texts) {
        numbers[label] = text.substr(text.find_first_of("0123456789"));
    }
    return numbers;
}

struct Texts {
    std::vector<toolkit::PlacedText> placed;
    int leftOut = 0;
};

Texts textsOf(const toolkit::SketchPlan& plan) {
    Texts texts;
    for (const toolkit::PlannedShape& shape : plan.shapes) {
        if (const auto* fixed = std::get_if<toolkit::PlacedText>(&shape)) {
            texts.placed.push_back(*fixed);
        } else if (const auto* dimension = std::get_if<toolkit::PlannedDimension>(&shape)) {
            if (dimension->text) {
                texts.placed.push_back(*dimension->text);
            } else {
                ++texts.leftOut;
            }
        }
    }
    return texts;
}

void expectApart(const Texts& texts, const toolkit::PixelRect& canvas) {
    for (std::size_t one = 0; one < texts.placed.size(); ++one) {
        EXPECT_TRUE(canvas.contains(texts.placed[one].bounds)) << texts.placed[one].text << " leaves the canvas";
        for (std::size_t other = one + 1; other < texts.placed.size(); ++other) {
            EXPECT_FALSE(texts.placed[one].bounds.overlaps(texts.placed[other].bounds))
                << texts.placed[one].text << " over " << texts.placed[other].text;
        }
    }
}

class DrawingTexts : public ::testing::TestWithParam<int> {};

/// Widths from 120 to 1600, other ones for each type, closer together where room is scarce.
std::vector<double> widthsFor(int type) {
    std::vector<double> widths;
    for (double width = 120 + type; width < 1600; width *= 1.35) {
        widths.push_back(width);
    }
    widths.push_back(1600);
    return widths;
}

TEST_P(DrawingTexts, TextsNeverCollideHoweverWideTheSketchIs) {
    const int type = GetParam();
    const double factor = std::array{0.3, 1.0, 10.0}[static_cast<std::size_t>(type) % 3];
    const ProductMeasures measures = measuresOfAPiece(factor);
    const screen::Drawing drawing = drawProduct(type, measures);
    const toolkit::LabelTexts words = drawingLabels(type, measures);
    for (const toolkit::LabelTexts& labels : {words, numbersOnly(words)}) {
        bool flat = false;
        for (const double width : widthsFor(type)) {
            flat = !flat;
            const double height = flat ? 160 : 0.75 * width;
            const toolkit::PixelRect canvas{.left = 0, .top = 0, .width = width, .height = height};
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            expectApart(textsOf(toolkit::planSketch(drawing, labels, canvas, formFont)), canvas);
        }
    }
}

TEST_P(DrawingTexts, ASketchOfTheMainFormShowsAllItsValues) {
    const ProductMeasures measures = measuresOfAPiece(1);
    const screen::Drawing drawing = drawProduct(GetParam(), measures);
    const toolkit::LabelTexts labels = numbersOnly(drawingLabels(GetParam(), measures));
    for (const double width : {240.0, 345.0, 900.0}) {
        const toolkit::PixelRect canvas{.left = 0, .top = 0, .width = width, .height = 270};
        EXPECT_EQ(textsOf(toolkit::planSketch(drawing, labels, canvas, formFont)).leftOut, 0) << width;
    }
}

// The smallest sketch of a form, and the one of a shop sheet with many lines, 46 mm high.
TEST_P(DrawingTexts, TheSmallestSketchesShowTheirTextsApart) {
    constexpr double pixelsOfAMillimetre = 96 / 25.4;
    const std::array canvases{
        toolkit::PixelRect{.left = 0, .top = 0, .width = 240, .height = 180},
        toolkit::PixelRect{
            .left = 0, .top = 0, .width = 180 * pixelsOfAMillimetre, .height = 46 * pixelsOfAMillimetre}};
    for (const double factor : {0.2, 0.5, 1.0, 3.0, 10.0}) {
        const ProductMeasures measures = measuresOfAPiece(factor);
        const screen::Drawing drawing = drawProduct(GetParam(), measures);
        const toolkit::LabelTexts words = drawingLabels(GetParam(), measures);
        for (const toolkit::PixelRect& canvas : canvases) {
            SCOPED_TRACE(std::to_string(factor) + ", " + std::to_string(canvas.width));
            expectApart(textsOf(toolkit::planSketch(drawing, words, canvas, formFont)), canvas);
            expectApart(textsOf(toolkit::planSketch(drawing, numbersOnly(words), canvas, formFont)), canvas);
        }
        const auto onPaper = textsOf(toolkit::planSketch(drawing, words, canvases[1], formFont));
        EXPECT_EQ(onPaper.leftOut, 0) << factor << ": nobody can make the sketch of a paper larger";
    }
}

INSTANTIATE_TEST_SUITE_P(AllTypes, DrawingTexts, ::testing::Range(0, static_cast<int>(data::productTypes.size())));

}  // namespace
}  // namespace velmora::estimate
