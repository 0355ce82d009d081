// Any text, read as a number, a whole number and a date.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

#include "expect.h"

namespace {

using namespace velmora::runtime;
using velmora::fuzz::expect;

/// The result of a conversion; none when it refuses the text.
template <typename Convert>
auto tried(Convert convert) -> std::optional<decltype(convert())> {
    try {
        return convert();
    } catch (const RuntimeError& error) {
        expect(error.number() == typeMismatch || error.number() == overflow, "only errors 13 and 6 are raised");
        return std::nullopt;
    }
}

void checkNumber(std::string_view text) {
    const auto number = tried([&] { return CDbl(text); });
    expect(number.has_value() == IsNumeric(text), "IsNumeric is true exactly when CDbl accepts");
    if (!number) {
        expect(Format(text, "0.00") == text, "text that is no number comes back as it is");
        return;
    }
    expect(std::isfinite(*number), "CDbl gives no infinity");
    const std::string shown = CStr(*number);
    const auto again = tried([&] { return CDbl(shown); });
    // The largest doubles round up to a text that lies beyond them all.
    expect(again.has_value() || std::abs(*number) > 1.797693134862315e308, "CDbl reads what CStr writes");
    if (again) {
        expect(std::abs(*again - *number) <= std::abs(*number) * 1e-14 + 1e-322, "CStr keeps 15 digits");
    }
    const auto whole = tried([&] { return CLng(text); });
    const auto rounded = tried([&] { return CLng(*number); });
    const bool bits = text.find('&') != std::string_view::npos;
    expect(bits || whole == rounded, "CLng of a text is CLng of its number");
}

void checkDate(std::string_view text) {
    const auto date = tried([&] { return CDate(text); });
    expect(date.has_value() == IsDate(text), "IsDate is true exactly when CDate accepts");
    if (date) {
        expect(CDate(CStr(*date)) == *date, "CDate reads what CStr writes");
        expect(fromSerial(toSerial(*date)) == *date, "a date survives as a number");
    }
}

void checkText(std::string_view text) {
    const std::size_t length = Len(text);
    const std::size_t cut = length / 2;
    expect(Left(text, length) == text && Right(text, length) == text && Mid(text, 1) == text, "the whole text");
    expect(Len(Left(text, cut)) <= cut && Len(Right(text, cut)) <= cut, "no piece is longer than asked");
    expect(Left(text, cut).size() + Mid(text, cut + 1).size() <= text.size(), "pieces do not overlap");
    expect(toCodePoints(toUtf8(toCodePoints(text))) == toCodePoints(text), "code points survive as UTF-8");
    expect(Len(UCase(text)) == length && Len(LCase(text)) == length, "capitals keep the length");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    checkNumber(text);
    checkDate(text);
    checkText(text);
    tried([&] { return Val(text); });
    return 0;
}
