#include "variants.h"

#include <cmath>
#include <limits>

#include "velmora/platform/runtime/errors.h"

namespace velmora::wine_host {

namespace {

constexpr double secondsOfDay = 86400;

/// 1899-12-30, from which COM counts days.
std::chrono::sys_days firstDay() {
    using namespace std::chrono;
    return sys_days{year{1899} / December / 30};
}

/// Before the first day, the fraction counts forward within the day all the same.
runtime::Date dateOf(double days) {
    const double whole = std::trunc(days);
    const auto seconds = static_cast<std::int64_t>(std::abs(days - whole) * secondsOfDay + 0.5);
    return {firstDay() + std::chrono::days{static_cast<int>(whole)} + std::chrono::seconds{seconds}};
}

double daysOf(runtime::Date date) {
    const auto day = std::chrono::floor<std::chrono::days>(date.at);
    const auto whole = static_cast<double>((day - firstDay()).count());
    const double part = static_cast<double>((date.at - day).count()) / secondsOfDay;
    return whole < 0 ? whole - part : whole + part;
}

sql::Bytes bytesOf(SAFEARRAY* array) {
    LONG first = 0;
    LONG last = -1;
    SafeArrayGetLBound(array, 1, &first);
    SafeArrayGetUBound(array, 1, &last);
    void* data = nullptr;
    if (SafeArrayAccessData(array, &data) < 0) {
        runtime::raise(runtime::typeMismatch);
    }
    const auto* from = static_cast<const std::byte*>(data);
    sql::Bytes bytes(from, from + (last - first + 1));
    SafeArrayUnaccessData(array);
    return bytes;
}

SAFEARRAY* arrayOf(const sql::Bytes& bytes) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    void* data = nullptr;
    if (array == nullptr || SafeArrayAccessData(array, &data) < 0) {
        throw std::bad_alloc();
    }
    std::copy(bytes.begin(), bytes.end(), static_cast<std::byte*>(data));
    SafeArrayUnaccessData(array);
    return array;
}

/// Gives a value of one alternative.
struct Giver {
    VARIANT& out;

    void operator()(std::monostate) const { V_VT(&out) = VT_NULL; }
    void operator()(bool value) const {
        V_VT(&out) = VT_BOOL;
        V_BOOL(&out) = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::int64_t value) const {
        if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max()) {
            V_VT(&out) = VT_I4;
            V_I4(&out) = static_cast<LONG>(value);
        } else {
            V_VT(&out) = VT_I8;
            V_I8(&out) = value;
        }
    }
    void operator()(double value) const {
        V_VT(&out) = VT_R8;
        V_R8(&out) = value;
    }
    void operator()(const std::string& value) const {
        V_VT(&out) = VT_BSTR;
        V_BSTR(&out) = newBstr(value);
    }
    void operator()(runtime::Date value) const {
        V_VT(&out) = VT_DATE;
        V_DATE(&out) = daysOf(value);
    }
    void operator()(const sql::Bytes& value) const {
        V_VT(&out) = VT_ARRAY | VT_UI1;
        V_ARRAY(&out) = arrayOf(value);
    }
};

const VARIANT& behind(const VARIANT& value) {
    const VARIANT* at = &value;
    while (V_VT(at) == (VT_BYREF | VT_VARIANT)) {
        at = V_VARIANTREF(at);
    }
    return *at;
}

}  // namespace

std::string textOf(const OLECHAR* text, std::size_t length) {
    const auto units = static_cast<int>(length);
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, units, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

std::string textOfBstr(BSTR text) {
    return text == nullptr ? std::string() : textOf(text, SysStringLen(text));
}

std::u16string wide(std::string_view utf8) {
    const auto bytes = static_cast<int>(utf8.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    std::u16string text(static_cast<std::size_t>(size), u'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, text.data(), size);
    return text;
}

BSTR newBstr(std::string_view utf8) {
    const std::u16string text = wide(utf8);
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

sql::Value valueOf(const VARIANT& given) {
    VARIANT copy;
    VariantInit(&copy);
    if (VariantCopyInd(&copy, &given) < 0) {
        runtime::raise(runtime::typeMismatch);
    }
    sql::Value value;
    switch (V_VT(&copy)) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_ERROR:
            break;
        case VT_BSTR:
            value = textOfBstr(V_BSTR(&copy));
            break;
        case VT_BOOL:
            value = V_BOOL(&copy) != VARIANT_FALSE;
            break;
        case VT_R8:
            value = V_R8(&copy);
            break;
        case VT_DATE:
            value = dateOf(V_DATE(&copy));
            break;
        case VT_I2:
            value = std::int64_t{V_I2(&copy)};
            break;
        case VT_I4:
            value = std::int64_t{V_I4(&copy)};
            break;
        case VT_ARRAY | VT_UI1:
            value = bytesOf(V_ARRAY(&copy));
            break;
        default:
            VariantClear(&copy);
            runtime::raise(runtime::typeMismatch);
    }
    VariantClear(&copy);
    return value;
}

void give(VARIANT& out, const sql::Value& value) {
    std::visit(Giver{out}, value.raw());
}

void giveObject(VARIANT& out, IDispatch* object) {
    if (object != nullptr) {
        object->AddRef();
    }
    V_VT(&out) = VT_DISPATCH;
    V_DISPATCH(&out) = object;
}

IDispatch* objectOf(const VARIANT& given) {
    const VARIANT& value = behind(given);
    switch (V_VT(&value)) {
        case VT_DISPATCH:
            return V_DISPATCH(&value);
        case VT_DISPATCH | VT_BYREF:
            return *V_DISPATCHREF(&value);
        default:
            runtime::raise(runtime::typeMismatch);
    }
}

void assignTo(VARIANT& given, const sql::Value& value) {
    switch (V_VT(&given)) {
        case VT_BYREF | VT_BSTR:
            SysFreeString(*V_BSTRREF(&given));
            *V_BSTRREF(&given) = newBstr(value.toText());
            break;
        case VT_BYREF | VT_BOOL:
            *V_BOOLREF(&given) = value.toBool() ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case VT_BYREF | VT_VARIANT:
            VariantClear(V_VARIANTREF(&given));
            give(*V_VARIANTREF(&given), value);
            break;
        default:
            break;
    }
}

}  // namespace velmora::wine_host
