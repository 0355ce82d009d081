#include "adapters/com/fake_object.h"

#include <algorithm>

#include "velmora/adapters/com/automation_object.h"
#include "velmora/adapters/com/text.h"

namespace velmora::com {

namespace {

std::string wayOf(WORD flags) {
    switch (flags) {
        case DISPATCH_METHOD:
            return "call";
        case DISPATCH_PROPERTYGET:
            return "get";
        case DISPATCH_METHOD | DISPATCH_PROPERTYGET:
            return "call or get";
        case DISPATCH_PROPERTYPUT:
            return "put";
        case DISPATCH_PROPERTYPUTREF:
            return "put by reference";
        default:
            return std::to_string(flags);
    }
}

std::string noteOf(const std::string& name, WORD flags, const DISPPARAMS& parameters) {
    std::string types;
    for (UINT i = parameters.cArgs; i > 0; --i) {
        types += (types.empty() ? "" : ",") + std::to_string(parameters.rgvarg[i - 1].vt);
    }
    return wayOf(flags) + " " + name + (types.empty() ? "" : "(" + types + ")");
}

}  // namespace

HRESULT FakeCall::answer(Variant value) const {
    if (result_ != nullptr) {
        value.detachTo(result_);
    }
    return S_OK;
}

HRESULT FakeCall::raise(HRESULT code, std::string_view description, std::string_view source) const {
    const std::wstring words = toWide(description);
    const std::wstring where = toWide(source);
    info_->scode = code;
    info_->bstrDescription = SysAllocString(words.c_str());
    info_->bstrSource = SysAllocString(where.c_str());
    return DISP_E_EXCEPTION;
}

void FakeObject::on(const std::string& name, WORD flags, Handler handler) {
    DISPID id = static_cast<DISPID>(members_.size()) + 1;
    for (const FakeMember& member : members_) {
        if (member.name == name) {
            id = member.id;
        }
    }
    // A later row of a name answers before an earlier one.
    members_.insert(members_.begin(), {name, name.empty() ? DISPID_VALUE : id, flags, std::move(handler)});
}

void FakeObject::onGet(const std::string& name, const Variant& value) {
    on(name, DISPATCH_PROPERTYGET, [value](FakeCall& call) { return call.answer(value); });
}

void FakeObject::onPut(const std::string& name) {
    on(name, DISPATCH_PROPERTYPUT, [](FakeCall&) { return S_OK; });
}

HRESULT FakeObject::QueryInterface(REFIID id, void** out) {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                       (isScript_ && IsEqualIID(id, __uuidof(IDispatchEx)));
    *out = known ? this : nullptr;
    if (!known) {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG FakeObject::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT FakeObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT FakeObject::look(std::wstring_view name, DISPID* id) const {
    for (const FakeMember& member : members_) {
        if (!member.name.empty() && isSameName(toWide(member.name), name)) {
            *id = member.id;
            return S_OK;
        }
    }
    *id = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

HRESULT FakeObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    return isScript_ ? E_NOTIMPL : look(names[0], ids);
}

HRESULT FakeObject::GetDispID(BSTR name, DWORD, DISPID* id) {
    return look({name, SysStringLen(name)}, id);
}

HRESULT FakeObject::run(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info) {
    const auto named = std::ranges::find(members_, id, &FakeMember::id);
    seen_->calls.push_back(noteOf(named == members_.end() ? "?" : named->name, flags, *parameters));
    const auto found = std::ranges::find_if(
        members_, [&](const FakeMember& member) { return member.id == id && (member.flags & flags) != 0; });
    if (found == members_.end()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    FakeCall call(flags, *parameters, result, info);
    const Handler handler = found->handler;
    return handler(call);
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* info, UINT*) {
    return isScript_ ? E_NOTIMPL : run(id, flags, parameters, result, info);
}

HRESULT FakeObject::InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                             IServiceProvider*) {
    return run(id, flags, parameters, result, info);
}

}  // namespace velmora::com
