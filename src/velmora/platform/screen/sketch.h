#pragma once
// The picture of a piece with value labels on it.

#include <functional>
#include <utility>
#include <vector>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::screen {

/// Shows a drawing that its form makes on demand, and text boxes as labels at the drawing's numbered places. A
/// hidden label takes its dimension line with it.
class Sketch : public Control {
  public:
    struct PlacedLabel {
        int label;  ///< the number in the drawing's dimensions
        TextBox* box;
    };

    using Control::Control;

    void setSource(std::function<Drawing()> source) { source_ = std::move(source); }
    /// Tells the toolkit that the drawing has changed; it is made anew when it is next painted.
    void invalidate() { notify(Property::drawing); }
    Drawing drawing() const { return source_ ? source_() : Drawing{}; }

    void place(int label, TextBox& box);
    const std::vector<PlacedLabel>& labels() const { return labels_; }

  private:
    std::function<Drawing()> source_;
    std::vector<PlacedLabel> labels_;
};

}  // namespace velmora::screen
