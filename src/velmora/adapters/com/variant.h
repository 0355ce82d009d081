#pragma once
// A VARIANT that owns what it holds, and its conversions from and to the values of the program.

#include <cstdint>
#include <string>
#include <string_view>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/adapters/com/ref.h"
#include "velmora/platform/sql/value.h"

namespace velmora::com {

class Variant {
  public:
    Variant() noexcept { VariantInit(&held_); }
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant other) noexcept;
    ~Variant();

    static Variant text(std::string_view utf8);
    static Variant shortNumber(std::int16_t value);
    static Variant longNumber(std::int32_t value);
    static Variant boolean(bool value);
    /// Null gives Nothing.
    static Variant object(const Ref<IDispatch>& object);
    /// An optional argument that is not given.
    static Variant omitted();
    /// A whole number beyond 32 bits becomes a VT_R8, a binary an array of bytes.
    static Variant of(const sql::Value& value);
    /// A copy, with references followed.
    static Variant copyOf(const VARIANT& value);

    VARTYPE type() const { return held_.vt; }
    const VARIANT& raw() const { return held_; }
    VARIANT* address() { return &held_; }
    /// For a function that returns a value through a pointer. Releases what was held.
    VARIANT* out();
    /// Moves the value to where its receiver will release it.
    void detachTo(VARIANT* target) noexcept;

    /// Null for VT_EMPTY, VT_NULL and an omitted argument. Error 13 for an object and for other types that no column
    /// has.
    sql::Value value() const { return valueOf(held_); }
    static sql::Value valueOf(const VARIANT& value);

    bool isObject() const;
    /// Empty for Nothing. Error 13 when it is no object with late binding.
    Ref<IDispatch> toObject() const { return objectOf(held_); }
    static Ref<IDispatch> objectOf(const VARIANT& value);

  private:
    VARIANT held_;
};

}  // namespace velmora::com
