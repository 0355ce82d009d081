#include "velmora/adapters/win32/layout_builder.h"

#include "velmora/adapters/win32/label_view.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/view_factory.h"
#include "velmora/platform/toolkit/layout_captions.h"

namespace velmora::win32 {

template <typename Kind>
Kind& LayoutBuilder::add(std::unique_ptr<Kind> part) {
    Kind& added = *part;
    if (auto* view = dynamic_cast<ControlView*>(part.get())) {
        view->setEnclosingFrames(enclosing_);
    }
    parts_.push_back(std::move(part));
    return added;
}

toolkit::PlacedPart* LayoutBuilder::control(const screen::Layout& field) {
    return partsOf(field).view;
}

toolkit::PlacedPart* LayoutBuilder::caption(const screen::Layout& field, bool shownByTurn) {
    const FieldParts& parts = partsOf(field);
    if (shownByTurn && parts.captionView != nullptr) {
        parts.captionView->setShownByOther();
    }
    return parts.caption;
}

toolkit::PlacedPart* LayoutBuilder::unit(const screen::Layout& field) {
    return partsOf(field).unit;
}

toolkit::PlacedPart& LayoutBuilder::openGroup(const screen::Layout& group, bool shownByTurn) {
    ControlView& view = add(makeView(host_, group));
    if (shownByTurn) {
        view.setShownByOther();
    }
    enclosing_.push_back(static_cast<const screen::Frame*>(group.control));
    return view;
}

LayoutBuilder::FieldParts& LayoutBuilder::partsOf(const screen::Layout& field) {
    const auto [found, isNew] = partsByField_.try_emplace(&field);
    FieldParts& parts = found->second;
    if (isNew) {
        parts.view = &add(makeView(host_, field));
        makeCaptionOf(field, parts);
        if (!field.unit.empty()) {
            parts.unit = &add(std::make_unique<TextPart>(host_, toWide(field.unit)));
            parts.view->addCompanion(*parts.unit);
        }
        parts.view->setAccessibleName(toWide(toolkit::accessibleNameOf(field)));
    }
    return parts;
}

void LayoutBuilder::makeCaptionOf(const screen::Layout& field, FieldParts& parts) {
    const bool total = field.role == screen::Role::total;
    if (field.captionLabel != nullptr) {
        parts.captionView = &add(std::make_unique<LabelView>(host_, *field.captionLabel));
        parts.captionView->setField(*parts.view);
        if (total) {
            parts.captionView->setTitle();
        }
        parts.caption = parts.captionView;
    } else if (!field.caption.empty()) {
        parts.caption = &add(std::make_unique<TextPart>(host_, toWide(field.caption),
                                                        total ? TextPart::Weight::title : TextPart::Weight::normal));
        parts.view->addCompanion(*parts.caption);
    }
}

}  // namespace velmora::win32
