#include "velmora/platform/sql/value.h"

#include <limits>
#include <type_traits>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::sql {

namespace {

/// Applies one conversion to whatever kind of value a row holds, with one overload per supported kind. Null and binary
/// convert to nothing.
template <typename Result, typename... Conversions>
struct Conversion : Conversions... {
    using Conversions::operator()...;

    Result operator()(std::monostate) const { runtime::raise(runtime::invalidUseOfNull); }
    Result operator()(const Bytes&) const { runtime::raise(runtime::typeMismatch); }
};

template <typename Result, typename... Conversions>
auto conversionTo(Conversions... conversions) {
    return Conversion<Result, Conversions...>{conversions...};
}

double asNumber(bool bit) {
    return bit ? -1.0 : 0.0;
}

std::int32_t asLong(std::int64_t whole) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (whole < Limits::min() || whole > Limits::max()) {
        runtime::raise(runtime::overflow);
    }
    return static_cast<std::int32_t>(whole);
}

}  // namespace

double Value::toDouble() const {
    return std::visit(
        conversionTo<double>([](bool v) { return asNumber(v); }, [](std::int64_t v) { return static_cast<double>(v); },
                             [](double v) { return v; }, [](const std::string& v) { return runtime::CDbl(v); },
                             [](const runtime::Date& v) { return runtime::toSerial(v); }),
        v_);
}

std::int32_t Value::toLong() const {
    return std::visit(
        conversionTo<std::int32_t>([](bool v) { return v ? -1 : 0; }, [](std::int64_t v) { return asLong(v); },
                                   [](double v) { return runtime::CLng(v); },
                                   [](const std::string& v) { return runtime::CLng(v); },
                                   [](const runtime::Date& v) { return runtime::CLng(runtime::toSerial(v)); }),
        v_);
}

std::string Value::toText() const {
    return std::visit(
        conversionTo<std::string>([](bool v) { return std::string(v ? "Verdadero" : "Falso"); },
                                  [](std::int64_t v) { return runtime::CStr(v); },
                                  [](double v) { return runtime::CStr(v); }, [](const std::string& v) { return v; },
                                  [](const runtime::Date& v) { return runtime::CStr(v); }),
        v_);
}

runtime::Date Value::toDate() const {
    return std::visit(
        conversionTo<runtime::Date>([](bool v) { return runtime::fromSerial(asNumber(v)); },
                                    [](std::int64_t v) { return runtime::fromSerial(static_cast<double>(v)); },
                                    [](double v) { return runtime::fromSerial(v); },
                                    [](const std::string& v) { return runtime::CDate(v); },
                                    [](const runtime::Date& v) { return v; }),
        v_);
}

bool Value::toBool() const {
    return !isNull() && toDouble() != 0;
}

}  // namespace velmora::sql
