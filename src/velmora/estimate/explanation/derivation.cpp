#include "velmora/estimate/explanation/derivation.h"

#include <utility>

#include "velmora/estimate/explanation/ground.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate::explaining {

namespace {
constexpr const char* maskOnLeaving = "#0.00";
}  // namespace

std::string plain(double value) {
    return runtime::CStr(value);
}

std::string twoDecimals(double value) {
    return runtime::Format(value, amountMask);
}

std::string millimetres(double value) {
    return plain(value) + " mm";
}

std::string kilograms(double value) {
    return twoDecimals(value) + " kg";
}

std::string euros(double value) {
    return twoDecimals(value) + " €";
}

std::string eurosPerKilogram(double value) {
    return plain(value) + " €/kg";
}

Deriving& Deriving::with(std::string name, std::string value, std::string source) {
    made_.inputs.push_back({.name = std::move(name), .value = std::move(value), .source = std::move(source)});
    return *this;
}

Deriving& Deriving::with(const Ground& ground, std::string name, const TextBox& field, std::string_view unit) {
    std::string value = field.text();
    if (!unit.empty()) {
        value += " " + std::string(unit);
    }
    return with(std::move(name), std::move(value), std::string(ground.standingOf(field)));
}

Deriving& Deriving::step(std::string line) {
    made_.steps.push_back(std::move(line));
    return *this;
}

Deriving& Deriving::rounded(std::string_view words) {
    made_.rounding = words;
    return *this;
}

Derivation Deriving::gives(double result) {
    return givesText(runtime::CStr(result));
}

Derivation Deriving::gives(double result, const char* mask) {
    return givesText(runtime::Format(result, mask));
}

Derivation Deriving::givesText(std::string result) {
    made_.result = std::move(result);
    return std::move(made_);
}

bool isSameFigure(const std::string& shown, const std::string& result) {
    if (shown == result) {
        return true;
    }
    if (!runtime::IsNumeric(shown) || !runtime::IsNumeric(result)) {
        return false;
    }
    const double onForm = runtime::CDbl(shown);
    const double byRule = runtime::CDbl(result);
    return onForm == byRule || onForm == runtime::CDbl(runtime::Format(byRule, maskOnLeaving));
}

}  // namespace velmora::estimate::explaining
