#pragma once
// Texts on a sketch: value labels and dimension texts.

#include <map>
#include <string>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::toolkit {

/// The text of each numbered label. A dimension whose label is missing here is left out.
using LabelTexts = std::map<int, std::string>;

/// The texts of the visible labels.
LabelTexts labelTextsOf(const screen::Sketch& sketch);

/// The text of a dimension: its caption followed by its label's text, or that text alone when it begins with a letter.
std::string shownText(const screen::Dimension& dimension, const LabelTexts& labels);

/// The visible labels with their names, "Diametro exterior 83; Ancho 21": the description of the sketch for assistive
/// technology.
std::string spokenMeasures(const screen::Sketch& sketch);

}  // namespace velmora::toolkit
