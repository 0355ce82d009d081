#pragma once
// Creates the parts of a form from its layout.

#include <memory>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/win32/control_view.h"
#include "velmora/platform/toolkit/layout_places.h"

namespace velmora::win32 {

class LabelView;

class LayoutBuilder : public toolkit::PartSource {
  public:
    explicit LayoutBuilder(ViewHost& host) : host_(host) {}

    toolkit::PlacedPart* control(const screen::Layout& field) override;
    toolkit::PlacedPart* caption(const screen::Layout& field, bool shownByTurn) override;
    toolkit::PlacedPart* unit(const screen::Layout& field) override;
    toolkit::PlacedPart& openGroup(const screen::Layout& group, bool shownByTurn) override;
    void closeGroup() override { enclosing_.pop_back(); }

    /// All parts in the order in which they are drawn: a group before what stands in it.
    std::vector<std::unique_ptr<Part>> takeParts() { return std::move(parts_); }

  private:
    /// The parts of a field.
    struct FieldParts {
        ControlView* view = nullptr;
        LabelView* captionView = nullptr;
        Part* caption = nullptr;
        Part* unit = nullptr;
    };

    /// Created when the first of them is needed.
    FieldParts& partsOf(const screen::Layout& field);
    void makeCaptionOf(const screen::Layout& field, FieldParts& parts);
    template <typename Kind>
    Kind& add(std::unique_ptr<Kind> part);

    ViewHost& host_;
    std::vector<std::unique_ptr<Part>> parts_;
    std::vector<const screen::Frame*> enclosing_;
    std::unordered_map<const screen::Layout*, FieldParts> partsByField_;
};

}  // namespace velmora::win32
