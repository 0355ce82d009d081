#include "velmora/platform/screen/sketch.h"

namespace velmora::screen {

void Sketch::place(int label, TextBox& box) {
    labels_.push_back({label, &box});
    notify(Property::drawing);
}

}  // namespace velmora::screen
