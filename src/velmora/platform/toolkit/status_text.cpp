#include "velmora/platform/toolkit/status_text.h"

namespace velmora::toolkit {

namespace {

using screen::RecordState;
using screen::Standing;

std::string wordsOf(Standing standing) {
    switch (standing) {
        case Standing::fresh:
            return "Nueva";
        case Standing::pending:
            return "Pendiente";
        case Standing::accepted:
            return "Aceptada";
        case Standing::readOnly:
            return "Solo lectura";
        case Standing::none:
            break;
    }
    return {};
}

std::string wordsOf(const RecordState& state) {
    std::string standing = wordsOf(state.standing);
    if (!state.unsaved) {
        return standing;
    }
    return standing.empty() ? "Sin grabar" : standing + ", sin grabar";
}

}  // namespace

StatusText statusTextOf(const screen::Form& form) {
    StatusText text = messageOf(form);
    text.state = wordsOf(form.status().state());
    return text;
}

StatusText messageOf(const screen::Form& form) {
    const screen::StatusLine& status = form.status();
    StatusText text{.state = {}, .message = {}, .deed = status.deed()};
    const screen::Control* active = form.activeControl();
    text.urgent = true;
    if (!status.work().empty()) {
        text.message = status.work();
    } else if (!status.note().empty()) {
        text.message = status.note();
    } else if (active != nullptr && !active->warning().empty()) {
        text.message = active->warning();
    } else {
        text.message = active != nullptr ? active->hint() : std::string();
        text.urgent = false;
    }
    return text;
}

}  // namespace velmora::toolkit
