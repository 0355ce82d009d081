#include "velmora/estimate/typed_fields.h"

#include "velmora/platform/screen/form.h"

namespace velmora::estimate {

void TypedFields::changed(const screen::TextBox& box) {
    if (programWrites_ == 0 && box.form().activeControl() == &box) {
        typed_.insert(&box);
    }
}

}  // namespace velmora::estimate
