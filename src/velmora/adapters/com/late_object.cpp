#include "velmora/adapters/com/late_object.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "velmora/adapters/com/errors.h"
#include "velmora/adapters/com/text.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

constexpr WORD methodOrProperty = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr std::string_view defaultMember = "(miembro predeterminado)";

bool isPut(WORD way) {
    return (way & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
}

class OwnedBstr {
  public:
    explicit OwnedBstr(std::string_view text) : held_(Variant::text(text)) {}
    BSTR get() const { return held_.raw().bstrVal; }

  private:
    Variant held_;
};

}  // namespace

VARIANT Argument::passedTo(bool script) {
    VARIANT passed;
    VariantInit(&passed);
    if (variable_ == nullptr) {
        return value_.raw();
    }
    VARIANT* variable = variable_->address();
    if (script) {
        passed.vt = VT_BYREF | VT_VARIANT;
        passed.pvarVal = variable;
    } else {
        passed.vt = static_cast<VARTYPE>(VT_BYREF | variable->vt);
        passed.byref = &variable->byref;
    }
    return passed;
}

struct LateObject::Bound {
    Ref<IDispatch> dispatch;
    Ref<IDispatchEx> script;
    mutable std::map<std::string, DISPID, std::less<>> ids;

    explicit Bound(Ref<IDispatch> object) : dispatch(std::move(object)) { script = dispatch.as<IDispatchEx>(); }

    std::optional<DISPID> look(std::string_view member) const {
        DISPID id = DISPID_UNKNOWN;
        if (script && script->GetDispID(OwnedBstr(member).get(), fdexNameCaseInsensitive, &id) >= 0) {
            return id;
        }
        std::wstring name = toWide(member);
        LPOLESTR names = name.data();
        if (dispatch->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id) >= 0) {
            return id;
        }
        return std::nullopt;
    }

    std::optional<DISPID> idOf(std::string_view member) const {
        const auto known = ids.find(member);
        if (known != ids.end()) {
            return known->second;
        }
        const auto found = look(member);
        if (found) {
            ids.emplace(member, *found);
        }
        return found;
    }

    /// Error 438.
    DISPID mustHave(std::string_view member) const {
        const auto id = idOf(member);
        if (!id) {
            ExceptionInfo none;
            throw errorOf(DISP_E_UNKNOWNNAME, none, member);
        }
        return *id;
    }

    HRESULT invoke(DISPID id, WORD way, DISPPARAMS& parameters, VARIANT* result, ExceptionInfo& info) const {
        if (script) {
            return script->InvokeEx(id, LOCALE_USER_DEFAULT, way, &parameters, result, info.out(), nullptr);
        }
        UINT argument = 0;
        return dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, way, &parameters, result, info.out(), &argument);
    }
};

LateObject::LateObject(Ref<IDispatch> object) {
    if (object) {
        bound_ = std::make_shared<Bound>(std::move(object));
    }
}

LateObject LateObject::tryCreate(std::string_view progId) {
    CLSID id{};
    if (CLSIDFromProgID(toWide(progId).c_str(), &id) < 0) {
        return {};
    }
    Ref<IDispatch> object;
    if (CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch, object.outUntyped()) <
        0) {
        return {};
    }
    return LateObject(std::move(object));
}

LateObject LateObject::create(std::string_view progId) {
    LateObject made = tryCreate(progId);
    if (!made) {
        throw runtime::RuntimeError(
            runtime::cannotCreateObject,
            runtime::errorDescription(runtime::cannotCreateObject) + ": falta el componente " + std::string(progId));
    }
    return made;
}

const LateObject::Bound& LateObject::bound() const {
    if (!bound_) {
        runtime::raise(runtime::objectNotSet);
    }
    return *bound_;
}

const Ref<IDispatch>& LateObject::dispatch() const {
    static const Ref<IDispatch> nothing;
    return bound_ ? bound_->dispatch : nothing;
}

bool LateObject::isSame(const LateObject& other) const {
    if (!bound_ || !other.bound_) {
        return !bound_ && !other.bound_;
    }
    return bound_->dispatch.as<IUnknown>().get() == other.bound_->dispatch.as<IUnknown>().get();
}

bool LateObject::has(std::string_view member) const {
    return bound().idOf(member).has_value();
}

/// Tries the ways one after the other as long as the object does not know the member that way.
Variant LateObject::invoke(DISPID id, std::string_view member, std::initializer_list<WORD> ways,
                           std::vector<Argument> arguments) const {
    const Bound& object = bound();
    std::ranges::reverse(arguments);  // the last one comes first
    std::vector<VARIANT> passed;
    passed.reserve(arguments.size());
    for (Argument& argument : arguments) {
        passed.push_back(argument.passedTo(static_cast<bool>(object.script)));
    }
    DISPID putName = DISPID_PROPERTYPUT;
    HRESULT answer = DISP_E_MEMBERNOTFOUND;
    for (const WORD way : ways) {
        DISPPARAMS parameters{.rgvarg = passed.data(),
                              .rgdispidNamedArgs = isPut(way) ? &putName : nullptr,
                              .cArgs = static_cast<UINT>(passed.size()),
                              .cNamedArgs = isPut(way) ? 1U : 0U};
        Variant result;
        ExceptionInfo info;
        answer = object.invoke(id, way, parameters, isPut(way) ? nullptr : result.address(), info);
        if (answer >= 0) {
            return result;
        }
        if (answer != DISP_E_MEMBERNOTFOUND) {
            throw errorOf(answer, info, member);
        }
    }
    ExceptionInfo none;
    throw errorOf(answer, none, member);
}

Variant LateObject::get(std::string_view member, Arguments arguments) const {
    return invoke(bound().mustHave(member), member, {DISPATCH_PROPERTYGET, methodOrProperty}, arguments);
}

LateObject LateObject::getObject(std::string_view member, Arguments arguments) const {
    return objectIn(get(member, arguments));
}

void LateObject::put(std::string_view member, const Variant& value) const {
    invoke(bound().mustHave(member), member, {DISPATCH_PROPERTYPUT}, {value});
}

void LateObject::putRef(std::string_view member, const LateObject& value) const {
    invoke(bound().mustHave(member), member, {DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT},
           {Variant::object(value.dispatch())});
}

Variant LateObject::call(std::string_view member, Arguments arguments) const {
    return invoke(bound().mustHave(member), member, {DISPATCH_METHOD, methodOrProperty}, arguments);
}

Variant LateObject::getDefault(Arguments arguments) const {
    return invoke(DISPID_VALUE, defaultMember, {DISPATCH_PROPERTYGET, methodOrProperty}, arguments);
}

Variant LateObject::getOrDefault(std::string_view member, Arguments arguments) const {
    return has(member) ? get(member, arguments) : getDefault(arguments);
}

LateObject objectIn(const Variant& value) {
    return LateObject(value.toObject());
}

}  // namespace velmora::com
