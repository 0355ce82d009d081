#pragma once
// The texts on a sketch: value labels, and what the dimensions show of them.

#include <map>
#include <string>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::toolkit {

/// The text at a drawing's numbered places. A place that is missing here has its dimension left out.
using LabelTexts = std::map<int, std::string>;

/// The texts of the labels that are visible.
LabelTexts labelTextsOf(const screen::Sketch& sketch);

/// What a dimension shows: its caption before its label's text, and that text alone when it begins with a letter.
std::string shownText(const screen::Dimension& dimension, const LabelTexts& labels);

/// The visible labels with their names, "Diametro exterior 83; Ancho 21": the sketch for assistive technology.
std::string spokenMeasures(const screen::Sketch& sketch);

}  // namespace velmora::toolkit
