#pragma once
// What every drawing has to stand up to, whatever it shows: absurd measures, and letters on a small canvas.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "drawing_probe.h"

namespace velmora::estimate {

template <typename Measures>
using Fields = std::vector<std::optional<double> Measures::*>;

/// Each field alone absurd, then ever more of them: `check` is given the measures of each case. `ordinary` is the piece
/// with one absurd field, `bare` the one whose fields turn absurd one after the other.
template <typename Measures, typename Check>
void withAbsurdFields(const Measures& ordinary, const Measures& bare, const Fields<Measures>& fields,
                      const Check& check) {
    for (const double value : nasty) {
        SCOPED_TRACE(value);
        Measures everywhere = bare;
        for (const auto field : fields) {
            everywhere.*field = value;
            Measures alone = ordinary;
            alone.*field = value;
            check(alone);
            check(everywhere);
        }
    }
}

/// How large a pixel of the smallest canvas is, in the measures of the drawing.
inline double pixelOf(const Drawing& drawing) {
    const Box box = bounds(drawing);
    return std::max(box.width() / 346, box.height() / 360);
}

/// No letters over other letters, none over metal. `lettersOf(dimension, pixel)` tells where those of a dimension lie.
template <typename LettersOf>
void expectLegible(const Drawing& drawing, const LettersOf& lettersOf) {
    const double pixel = pixelOf(drawing);
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

}  // namespace velmora::estimate
