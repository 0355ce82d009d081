#include "velmora/platform/toolkit/layout_captions.h"

#include "velmora/platform/runtime/text.h"

namespace velmora::toolkit {

bool hasCaption(const screen::Layout& field) {
    return field.captionLabel != nullptr || !field.caption.empty();
}

std::string captionOf(const screen::Layout& field) {
    return field.captionLabel != nullptr ? field.captionLabel->caption() : field.caption;
}

std::string accessibleNameOf(const screen::Layout& field) {
    if (!field.control->accessibleName().empty()) {
        return field.control->accessibleName();
    }
    const std::string caption = captionOf(field);
    if (!caption.empty()) {
        return field.unit.empty() ? caption : caption + " (" + field.unit + ")";
    }
    const auto* captioned = dynamic_cast<const screen::Captioned*>(field.control);
    if (captioned != nullptr && !captioned->caption().empty()) {
        return runtime::Replace(captioned->caption(), "&", "");
    }
    return field.control->toolTip().empty() ? field.control->fullName() : field.control->toolTip();
}

}  // namespace velmora::toolkit
