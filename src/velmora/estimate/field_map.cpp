#include "velmora/estimate/field_map.h"

#include <variant>

#include "velmora/estimate/field_names.h"
#include "velmora/estimate/price.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::estimate {

// Differs D-003: the pulley's second hub counts as soon as the user has told it; until then its fields hold nothing of
// this pulley, and total width and stored columns leave them out.
bool FieldMap::secondHubIsKnown() const {
    return product().hubs == data::Hubs::twoUnlike &&
           (product().secondHubLoaded || typed.contain(Text1(measure::secondHubWidth)) ||
            typed.contain(Text1(measure::secondHubDiameter)));
}

void FieldMap::noteChange(const TextBox& box) {
    if (!bCargandoPropuesta) {
        typed.changed(box);
    }
}

void FieldMap::invalidateSketches() {
    for (screen::Sketch* each : {&sketch, &picDoble, &picTriple, &picVariable, &picCremallera}) {
        each->invalidate();
    }
}

void FieldMap::forEachTextBox(const std::function<void(TextBox&)>& action) {
    for (screen::Control* control : form.controls()) {
        if (control->holds() == screen::Holds::text) {
            action(static_cast<TextBox&>(*control));
        }
    }
}

double number(const TextBox& box) {
    return box.number();
}

double numberOrZero(const TextBox& box) {
    return box.holdsNumber() ? box.number() : 0;
}

void put(TextBox& box, double value) {
    box.setNumber(value);
}

void put(TextBox& box, const sql::Value& value) {
    if (const double* number = std::get_if<double>(&value.raw())) {
        box.setNumber(*number);
    } else {
        box.setText(value.toText());
    }
}

double round2(double value) {
    return cents(value);
}

std::string entryKey(const ComboBox& list) {
    return runtime::Left(list.text(), 3);
}

}  // namespace velmora::estimate
