// Any number and date under any mask. The first line of the input is the number, the rest the mask.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

#include "expect.h"

namespace {

using namespace velmora::runtime;
using velmora::fuzz::expect;

/// The number that the text is, or else the one that its first bytes make.
double numberOf(std::string_view text) {
    if (IsNumeric(text)) {
        return CDbl(text);
    }
    double value = 0;
    std::memcpy(&value, text.data(), text.size() < sizeof value ? text.size() : sizeof value);
    return std::isfinite(value) ? value : 0;
}

void checkRounding(double value) {
    if (std::abs(value) > 1e300) {
        return;
    }
    for (int decimals = 0; decimals <= 4; ++decimals) {
        const double unit = std::pow(10.0, -decimals);
        const double slack = std::abs(value) * 1e-14;
        const double even = Round(value, decimals);
        const double away = Redondear(value, decimals);
        expect(std::abs(even - value) <= unit / 2 + slack, "Round stays within half a unit");
        expect(std::abs(away - value) <= unit / 2 + slack, "Redondear stays within half a unit");
        expect(Round(even, decimals) == even, "Round is stable");
        expect(Redondear(away, decimals) == away, "Redondear is stable");
    }
    expect(CDbl(Format(value, "#,##0.00")) == Redondear(value, 2), "Format rounds as Redondear does");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view text = input.substr(0, input.find('\n'));
    const std::string_view mask = text.size() < input.size() ? input.substr(text.size() + 1) : std::string_view();
    const double value = numberOf(text);
    checkRounding(value);
    try {
        Format(value, mask);
        Format(text, mask);
        Format(fromSerial(value), mask);
    } catch (const RuntimeError& error) {
        expect(error.number() == overflow, "a mask raises nothing but an overflow");
    }
    return 0;
}
