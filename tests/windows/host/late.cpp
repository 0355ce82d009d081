#include "late.h"

#include <algorithm>

#include "velmora/platform/runtime/errors.h"

#include "variants.h"

namespace velmora::wine_host {

namespace {

constexpr unsigned long upperHalf = 0xFFFF0000UL;
constexpr unsigned long languageCodes = 0x800A0000UL;

long numberOf(HRESULT code) {
    const auto bits = static_cast<unsigned long>(static_cast<unsigned int>(code));
    return (bits & upperHalf) == languageCodes ? static_cast<long>(bits & ~upperHalf) : long{code};
}

[[noreturn]] void raiseFailure(HRESULT code, EXCEPINFO& info, std::string_view member) {
    if (code != DISP_E_EXCEPTION) {
        throw runtime::RuntimeError(numberOf(code), "no call of " + std::string(member), "host");
    }
    const runtime::RuntimeError told(numberOf(info.scode), textOfBstr(info.bstrDescription),
                                     textOfBstr(info.bstrSource));
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrHelpFile);
    throw told;
}

}  // namespace

Held::Held(IDispatch* object) : Held() {
    giveObject(variant_, object);
}

Held::Held(Held&& other) noexcept : variant_(other.variant_) {
    VariantInit(&other.variant_);
}

void Held::giveValue(const sql::Value& value) {
    give(variant_, value);
}

sql::Value Held::value() const {
    return valueOf(variant_);
}

Object Held::object() const {
    IDispatch* found = objectOf(variant_);
    if (found == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    return sharing(found);
}

Object create(std::string_view progId) {
    CLSID id{};
    void* made = nullptr;
    if (CLSIDFromProgID(wide(progId).c_str(), &id) < 0 ||
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made) < 0) {
        throw runtime::RuntimeError(runtime::cannotCreateObject, "cannot create " + std::string(progId), "host");
    }
    return Object(static_cast<IDispatch*>(made));
}

Held invoke(IDispatch& object, std::string_view member, WORD how, std::vector<Held> arguments) {
    ++traffic().calls;
    std::u16string name = wide(member);
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    EXCEPINFO info{};
    const HRESULT known = object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (known < 0) {
        raiseFailure(known, info, member);
    }
    std::vector<VARIANT> passed;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(passed),
                   [](Held& argument) { return argument.raw(); });
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (how & isPut) != 0;
    DISPPARAMS parameters{passed.data(), puts ? &put : nullptr, static_cast<UINT>(passed.size()), puts ? 1U : 0U};
    Held result;
    const HRESULT code = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters,
                                       puts ? nullptr : &result.raw(), &info, nullptr);
    if (code < 0) {
        raiseFailure(code, info, member);
    }
    return result;
}

Held get(IDispatch& object, std::string_view member) {
    return invoke(object, member, DISPATCH_PROPERTYGET);
}

Object getObject(IDispatch& object, std::string_view member) {
    return get(object, member).object();
}

Object item(IDispatch& collection, int index) {
    std::vector<Held> arguments;
    arguments.emplace_back(sql::Value(index));
    return invoke(collection, "Item", DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::move(arguments)).object();
}

}  // namespace velmora::wine_host
