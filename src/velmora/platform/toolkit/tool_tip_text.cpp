#include "velmora/platform/toolkit/tool_tip_text.h"

namespace velmora::toolkit {

std::string toolTipTextOf(const screen::Control& control) {
    const std::string explanation = control.explanation ? control.explanation() : std::string();
    const std::string& rest = explanation.empty() ? control.toolTip() : explanation;
    const std::string between = control.warning().empty() || rest.empty() ? "" : "\n";
    return control.warning() + between + rest;
}

}  // namespace velmora::toolkit
