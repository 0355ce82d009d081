#pragma once
// A drawing of the piece with value labels.

#include <functional>
#include <utility>
#include <vector>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::screen {

/// Shows a drawing that its form creates on demand, with text boxes as labels at the drawing's numbered places. A
/// hidden label hides its dimension line.
class Sketch : public Control {
  public:
    struct PlacedLabel {
        int label;  ///< label number in the drawing's dimensions
        TextBox* box;
    };

    using Control::Control;

    void setSource(std::function<Drawing()> source) { source_ = std::move(source); }
    /// Tells the toolkit that the drawing has changed; it is created again on the next paint.
    void invalidate() { notify(Property::drawing); }
    Drawing drawing() const { return source_ ? source_() : Drawing{}; }

    void place(int label, TextBox& box);
    const std::vector<PlacedLabel>& labels() const { return labels_; }
    bool carries(const Control& other) const override;

  private:
    std::function<Drawing()> source_;
    std::vector<PlacedLabel> labels_;
};

}  // namespace velmora::screen
