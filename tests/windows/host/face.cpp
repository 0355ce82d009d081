#include "face.h"

#include <algorithm>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

#include "variants.h"

namespace velmora::wine_host {

namespace {

constexpr long notInCollection = 3265;
constexpr unsigned long languageCodes = 0x800A0000UL;

HRESULT codeOf(long number) {
    return number > 0 ? static_cast<HRESULT>(languageCodes | static_cast<unsigned long>(number))
                      : static_cast<HRESULT>(number);
}

void tell(EXCEPINFO* info, long number, std::string_view description, std::string_view source) {
    if (info == nullptr) {
        return;
    }
    *info = {};
    info->scode = codeOf(number);
    info->bstrDescription = newBstr(description);
    info->bstrSource = newBstr(source);
}

/// The exception that is being handled.
void tellCurrent(EXCEPINFO* info) {
    try {
        throw;
    } catch (const runtime::RuntimeError& e) {
        tell(info, e.number(), e.description(), e.source());
    } catch (const std::exception& e) {
        tell(info, E_FAIL, e.what(), "host");
    } catch (...) {
        tell(info, E_FAIL, "unknown", "host");
    }
}

}  // namespace

Traffic& traffic() {
    static Traffic counts;
    return counts;
}

VARIANT& Call::argument(std::size_t position) const {
    if (position >= count()) {
        runtime::raise(450);
    }
    return parameters_.rgvarg[count() - 1 - position];
}

sql::Value Call::value(std::size_t position) const {
    return valueOf(argument(position));
}

IDispatch* Call::object(std::size_t position) const {
    return objectOf(argument(position));
}

HRESULT Face::QueryInterface(REFIID id, void** out) {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
    *out = known ? this : nullptr;
    if (!known) {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG Face::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT Face::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT Face::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    ++traffic().lookups;
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    const std::string name = runtime::LCase(textOf(names[0], std::char_traits<char16_t>::length(names[0])));
    const auto found = std::ranges::find(members_, name, &Member::name);
    if (found == members_.end() || count != 1) {
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = static_cast<DISPID>(found - members_.begin()) + 1;
    return S_OK;
}

const Member* Face::find(DISPID id, WORD how) const {
    std::string name;
    if (id > 0 && static_cast<std::size_t>(id) <= members_.size()) {
        name = members_[static_cast<std::size_t>(id) - 1].name;
    }
    const auto found = std::ranges::find_if(members_, [&](const Member& member) {
        return (member.how & how) != 0 && (id == DISPID_VALUE ? member.isDefault : member.name == name);
    });
    return found == members_.end() ? nullptr : &*found;
}

HRESULT Face::Invoke(DISPID id, REFIID, LCID, WORD how, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                     UINT*) {
    ++traffic().calls;
    const Member* member = find(id, how);
    if (member == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    AddRef();
    VARIANT answer;
    VariantInit(&answer);
    HRESULT code = S_OK;
    try {
        Call call(*parameters, answer);
        member->run(call);
    } catch (...) {
        tellCurrent(info);
        code = DISP_E_EXCEPTION;
    }
    if (result != nullptr && code == S_OK) {
        *result = answer;
    } else {
        VariantClear(&answer);
    }
    Release();
    return code;
}

Object sharing(IDispatch* object) {
    object->AddRef();
    return Object(object);
}

Object makeFace(std::vector<Member> members) {
    return Object(new Face(std::move(members)));
}

std::shared_ptr<IDispatch> shared(Object object) {
    return {object.release(), Releaser()};
}

Object makeCollection(std::vector<Item> items) {
    const auto held = std::make_shared<std::vector<Item>>(std::move(items));
    const auto item = [held](Call& call) {
        const sql::Value index = call.value(0);
        auto found = held->end();
        if (index.isText()) {
            found = std::ranges::find_if(*held, [&](const Item& candidate) {
                return runtime::LCase(candidate.name) == runtime::LCase(index.toText());
            });
        } else if (index.toLong() >= 0 && static_cast<std::size_t>(index.toLong()) < held->size()) {
            found = held->begin() + index.toLong();
        }
        if (found == held->end()) {
            throw runtime::RuntimeError(notInCollection, "El elemento no está en la colección.");
        }
        giveObject(call.result(), found->object.get());
    };
    return makeFace({
        {"count", isGet, [held](Call& call) { give(call.result(), static_cast<int>(held->size())); }},
        {"item", isGet | isMethod, item, true},
    });
}

}  // namespace velmora::wine_host
