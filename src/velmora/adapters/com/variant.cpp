#include "velmora/adapters/com/variant.h"

#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

#include "velmora/adapters/com/text.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

/// VT_CY counts ten-thousandths.
constexpr double unitsOfCurrency = 10000.0;

BSTR newText(std::string_view utf8) {
    const std::wstring wide = toWide(utf8);
    BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (text == nullptr) {
        throw std::bad_alloc();
    }
    return text;
}

SAFEARRAY* newBytes(const sql::Bytes& bytes) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (array == nullptr) {
        throw std::bad_alloc();
    }
    if (!bytes.empty()) {
        std::memcpy(array->pvData, bytes.data(), bytes.size());
    }
    return array;
}

sql::Bytes bytesOf(SAFEARRAY* array) {
    LONG first = 0;
    LONG last = -1;
    if (array == nullptr || SafeArrayGetDim(array) != 1 || SafeArrayGetLBound(array, 1, &first) < 0 ||
        SafeArrayGetUBound(array, 1, &last) < 0) {
        runtime::raise(runtime::typeMismatch);
    }
    const auto* content = static_cast<const std::byte*>(array->pvData);
    return {content, content + (last - first + 1)};
}

sql::Value textOf(BSTR text) {
    return fromWide({text == nullptr ? L"" : text, SysStringLen(text)});
}

sql::Value decimalOf(DECIMAL decimal) {
    double number = 0;
    if (VarR8FromDec(&decimal, &number) < 0) {
        runtime::raise(runtime::overflow);
    }
    return number;
}

sql::Value unsignedOf(ULONGLONG number) {
    if (number > static_cast<ULONGLONG>(std::numeric_limits<std::int64_t>::max())) {
        return static_cast<double>(number);
    }
    return static_cast<std::int64_t>(number);
}

/// The variant that a reference leads to.
const VARIANT& followed(const VARIANT& value) {
    return value.vt == (VT_BYREF | VT_VARIANT) ? followed(*value.pvarVal) : value;
}

sql::Value plainValue(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_ERROR:
            return {};
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE;
        case VT_I1:
            return std::int64_t{value.cVal};
        case VT_I2:
            return std::int64_t{value.iVal};
        case VT_I4:
            return std::int64_t{value.lVal};
        case VT_INT:
            return std::int64_t{value.intVal};
        case VT_I8:
            return std::int64_t{value.llVal};
        case VT_UI1:
            return std::int64_t{value.bVal};
        case VT_UI2:
            return std::int64_t{value.uiVal};
        case VT_UI4:
            return std::int64_t{value.ulVal};
        case VT_UINT:
            return std::int64_t{value.uintVal};
        case VT_UI8:
            return unsignedOf(value.ullVal);
        case VT_R4:
            return double{value.fltVal};
        case VT_R8:
            return value.dblVal;
        case VT_CY:
            return static_cast<double>(value.cyVal.int64) / unitsOfCurrency;
        case VT_DECIMAL:
            return decimalOf(value.decVal);
        case VT_DATE:
            return runtime::fromSerial(value.date);
        case VT_BSTR:
            return textOf(value.bstrVal);
        case VT_ARRAY | VT_UI1:
            return bytesOf(value.parray);
        default:
            runtime::raise(runtime::typeMismatch);
    }
}

/// Some headers declare the source of a copy without const.
VARIANT* sourceOf(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

Variant withType(VARTYPE type) {
    Variant made;
    made.address()->vt = type;
    return made;
}

/// One overload for each kind of value.
struct ToVariant {
    Variant operator()(std::monostate) const { return withType(VT_NULL); }
    Variant operator()(bool value) const { return Variant::boolean(value); }
    Variant operator()(std::int64_t value) const {
        using Limits = std::numeric_limits<std::int32_t>;
        if (value >= Limits::min() && value <= Limits::max()) {
            return Variant::longNumber(static_cast<std::int32_t>(value));
        }
        return (*this)(static_cast<double>(value));
    }
    Variant operator()(double value) const {
        Variant made = withType(VT_R8);
        made.address()->dblVal = value;
        return made;
    }
    Variant operator()(const std::string& value) const { return Variant::text(value); }
    Variant operator()(const runtime::Date& value) const {
        Variant made = withType(VT_DATE);
        made.address()->date = runtime::toSerial(value);
        return made;
    }
    Variant operator()(const sql::Bytes& value) const {
        SAFEARRAY* array = newBytes(value);
        Variant made = withType(VT_ARRAY | VT_UI1);
        made.address()->parray = array;
        return made;
    }
};

}  // namespace

Variant::Variant(const Variant& other) : Variant() {
    if (VariantCopy(&held_, sourceOf(other.held_)) < 0) {
        throw std::bad_alloc();
    }
}

Variant::Variant(Variant&& other) noexcept : held_(other.held_) {
    VariantInit(&other.held_);
}

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(held_, other.held_);
    return *this;
}

Variant::~Variant() {
    const bool isReference = held_.vt == VT_DISPATCH || held_.vt == VT_UNKNOWN;
    if (!isReference || !areReferencesLeft()) {
        VariantClear(&held_);
    }
}

Variant Variant::text(std::string_view utf8) {
    BSTR made = newText(utf8);
    Variant text = withType(VT_BSTR);
    text.held_.bstrVal = made;
    return text;
}

Variant Variant::shortNumber(std::int16_t value) {
    Variant number = withType(VT_I2);
    number.held_.iVal = value;
    return number;
}

Variant Variant::longNumber(std::int32_t value) {
    Variant number = withType(VT_I4);
    number.held_.lVal = value;
    return number;
}

Variant Variant::boolean(bool value) {
    Variant boolean = withType(VT_BOOL);
    boolean.held_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return boolean;
}

Variant Variant::object(const Ref<IDispatch>& object) {
    Variant made = withType(VT_DISPATCH);
    made.held_.pdispVal = Ref<IDispatch>(object).detach();
    return made;
}

Variant Variant::omitted() {
    Variant missing = withType(VT_ERROR);
    missing.held_.scode = DISP_E_PARAMNOTFOUND;
    return missing;
}

Variant Variant::of(const sql::Value& value) {
    return std::visit(ToVariant{}, value.raw());
}

Variant Variant::copyOf(const VARIANT& value) {
    Variant copy;
    if (VariantCopyInd(&copy.held_, sourceOf(value)) < 0) {
        runtime::raise(runtime::typeMismatch);
    }
    return copy;
}

VARIANT* Variant::out() {
    *this = Variant();
    return &held_;
}

void Variant::detachTo(VARIANT* target) noexcept {
    *target = held_;
    VariantInit(&held_);
}

sql::Value Variant::valueOf(const VARIANT& value) {
    const VARIANT& plain = followed(value);
    return (plain.vt & VT_BYREF) != 0 ? plainValue(copyOf(plain).held_) : plainValue(plain);
}

bool Variant::isObject() const {
    const VARIANT& plain = followed(held_);
    const VARTYPE type = plain.vt & static_cast<VARTYPE>(~VT_BYREF);
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

Ref<IDispatch> Variant::objectOf(const VARIANT& value) {
    const VARIANT& plain = followed(value);
    switch (plain.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return {};
        case VT_DISPATCH:
            return Ref<IDispatch>::sharing(plain.pdispVal);
        case VT_BYREF | VT_DISPATCH:
            return Ref<IDispatch>::sharing(*plain.ppdispVal);
        case VT_UNKNOWN:
        case VT_BYREF | VT_UNKNOWN: {
            IUnknown* unknown = plain.vt == VT_UNKNOWN ? plain.punkVal : *plain.ppunkVal;
            if (unknown == nullptr) {
                return {};
            }
            Ref<IDispatch> object = Ref<IUnknown>::sharing(unknown).as<IDispatch>();
            if (!object) {
                runtime::raise(runtime::typeMismatch);
            }
            return object;
        }
        default:
            runtime::raise(runtime::typeMismatch);
    }
}

}  // namespace velmora::com
