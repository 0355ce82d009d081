#include "velmora/platform/toolkit/field_ground.h"

#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::toolkit {

Ground groundOf(const screen::Control& control, screen::Role role) {
    if (role == screen::Role::label) {
        return Ground::none;
    }
    if (control.backColor() != screen::colors::white) {
        return Ground::own;
    }
    if (control.form().activeControl() == &control && control.canTakeFocus()) {
        return Ground::focus;
    }
    return role == screen::Role::entered && looksEnabled(control) ? Ground::entered : Ground::calculated;
}

}  // namespace velmora::toolkit
