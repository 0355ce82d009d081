#include "velmora/adapters/com/automation_object.h"

#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

[[noreturn]] void refuseArgument(HRESULT answer) {
    ExceptionInfo none;
    throw errorOf(answer, none, "VELMORA");
}

VARTYPE typeBehind(const VARIANT& reference) {
    return static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
}

}  // namespace

Call::Call(const DISPPARAMS& parameters) : arguments_(parameters.cArgs) {
    const bool isPut = parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (parameters.cNamedArgs != 0 && !isPut) {
        refuseArgument(DISP_E_PARAMNOTFOUND);
    }
    for (UINT i = 0; i < parameters.cArgs; ++i) {
        arguments_[parameters.cArgs - 1 - i] = &parameters.rgvarg[i];
    }
}

/// With references to variants followed: a variable of a script, or a typed reference.
VARIANT& Call::argument(std::size_t position) const {
    VARIANT* given = arguments_.at(position);
    while (given->vt == (VT_BYREF | VT_VARIANT)) {
        given = given->pvarVal;
    }
    return *given;
}

bool Call::isGiven(std::size_t position) const {
    return position < count() && argument(position).vt != VT_ERROR;
}

sql::Value Call::value(std::size_t position) const {
    if (!isGiven(position)) {
        refuseArgument(DISP_E_PARAMNOTOPTIONAL);
    }
    const VARIANT& given = argument(position);
    const VARTYPE type = typeBehind(given);
    if (type == VT_DISPATCH || type == VT_UNKNOWN) {
        return LateObject(Variant::objectOf(given)).getDefault().value();
    }
    return Variant::valueOf(given);
}

Ref<IDispatch> Call::object(std::size_t position) const {
    if (!isGiven(position)) {
        refuseArgument(DISP_E_PARAMNOTOPTIONAL);
    }
    return Variant::objectOf(argument(position));
}

void Call::assign(std::size_t position, const Variant& value) const {
    VARIANT* given = arguments_.at(position);
    if ((given->vt & VT_BYREF) == 0) {
        return;
    }
    VARIANT& variable = argument(position);
    Variant converted = value;
    if ((variable.vt & VT_BYREF) == 0) {  // a script's variable takes any type
        VariantClear(&variable);
        converted.detachTo(&variable);
        return;
    }
    const VARTYPE type = typeBehind(variable);
    if (VariantChangeType(converted.address(), converted.address(), 0, type) < 0) {
        refuseArgument(DISP_E_TYPEMISMATCH);
    }
    switch (type) {
        case VT_BOOL:
            *variable.pboolVal = converted.raw().boolVal;
            break;
        case VT_I2:
            *variable.piVal = converted.raw().iVal;
            break;
        case VT_I4:
            *variable.plVal = converted.raw().lVal;
            break;
        case VT_R8:
            *variable.pdblVal = converted.raw().dblVal;
            break;
        case VT_BSTR: {
            SysFreeString(*variable.pbstrVal);
            VARIANT moved;
            converted.detachTo(&moved);
            *variable.pbstrVal = moved.bstrVal;
            break;
        }
        default:
            refuseArgument(DISP_E_TYPEMISMATCH);
    }
}

bool isSameName(std::wstring_view one, std::wstring_view other) {
    return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(), static_cast<int>(other.size()),
                                TRUE) == CSTR_EQUAL;
}

}  // namespace velmora::com
