#pragma once
// Makes the names of the main form's fields available in this namespace.

#include "velmora/estimate/field_names.h"

namespace velmora::proposal {

namespace caption = estimate::caption;
namespace cut = estimate::cut;
namespace doubleSketch = estimate::doubleSketch;
namespace innerLabel = estimate::innerLabel;
namespace label = estimate::label;
namespace measure = estimate::measure;
namespace money = estimate::money;
namespace rackSketch = estimate::rackSketch;
namespace tripleSketch = estimate::tripleSketch;
namespace variableSketch = estimate::variableSketch;

}  // namespace velmora::proposal
