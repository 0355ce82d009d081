#pragma once
// One value of a row, as returned by an engine.

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "velmora/platform/runtime/date.h"

namespace velmora::sql {

using Bytes = std::vector<std::byte>;

/// Null, bit, whole number, number, text, date or binary.
class Value {
  public:
    Value() = default;
    Value(bool v) : v_(v) {}
    Value(int v) : v_(std::int64_t{v}) {}
    Value(std::int64_t v) : v_(v) {}
    Value(double v) : v_(v) {}
    Value(std::string v) : v_(std::move(v)) {}
    Value(const char* v) : v_(std::string(v)) {}
    Value(runtime::Date v) : v_(v) {}
    Value(Bytes v) : v_(std::move(v)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(v_); }
    bool isBit() const { return std::holds_alternative<bool>(v_); }
    bool isWhole() const { return std::holds_alternative<std::int64_t>(v_); }
    bool isNumber() const { return isBit() || isWhole() || std::holds_alternative<double>(v_); }
    bool isText() const { return std::holds_alternative<std::string>(v_); }
    bool isDate() const { return std::holds_alternative<runtime::Date>(v_); }
    bool isBytes() const { return std::holds_alternative<Bytes>(v_); }

    /// Conversion to a number, a whole number, a text or a date by the rules of the language. Null is error 94; a text
    /// that does not convert is error 13. A bit is -1 or 0 as a number, "Verdadero" or "Falso" as text.
    double toDouble() const;
    std::int32_t toLong() const;
    std::string toText() const;
    runtime::Date toDate() const;

    /// True for any number but 0; null is false, a text is converted to a number first.
    bool toBool() const;

    const std::variant<std::monostate, bool, std::int64_t, double, std::string, runtime::Date, Bytes>& raw() const {
        return v_;
    }

    friend bool operator==(const Value&, const Value&) = default;

  private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, runtime::Date, Bytes> v_;
};

using Row = std::vector<Value>;

}  // namespace velmora::sql
