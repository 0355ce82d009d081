#include "velmora/platform/screen/sketch.h"

#include <algorithm>

namespace velmora::screen {

void Sketch::place(int label, TextBox& box) {
    labels_.push_back({label, &box});
    notify(Property::drawing);
}

bool Sketch::carries(const Control& other) const {
    return std::ranges::any_of(labels_, [&](const PlacedLabel& label) { return label.box == &other; });
}

}  // namespace velmora::screen
