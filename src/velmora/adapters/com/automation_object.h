#pragma once
// Objects of ours that others call by the names of their members. Each states its members in one table: name, number,
// how they are called, how many arguments they take, and the operation.

#include <atomic>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/adapters/com/errors.h"
#include "velmora/adapters/com/object_count.h"
#include "velmora/adapters/com/ref.h"
#include "velmora/adapters/com/variant.h"

namespace velmora::com {

/// The arguments of one call, by position, and its result.
class Call {
  public:
    explicit Call(const DISPPARAMS& parameters);

    std::size_t count() const { return arguments_.size(); }
    /// False for an argument that the caller has left out.
    bool isGiven(std::size_t position) const;
    /// Error 449 for one that was left out; for an object the value of its default member. Error 13 when it has none.
    sql::Value value(std::size_t position) const;
    /// Error 13 when the argument is no object; empty for Nothing.
    Ref<IDispatch> object(std::size_t position) const;
    /// Writes the caller's variable, converted to its type; nothing happens to an argument by value. Error 13 when the
    /// variable cannot hold it.
    void assign(std::size_t position, const Variant& value) const;

    void answer(Variant result) { result_ = std::move(result); }
    void answer(const sql::Value& result) { result_ = Variant::of(result); }
    Variant& result() { return result_; }

  private:
    VARIANT& argument(std::size_t position) const;
    std::vector<VARIANT*> arguments_;
    Variant result_;
};

/// How a member is called: DISPATCH_ flags that it answers to.
inline constexpr WORD asMethod = DISPATCH_METHOD;
inline constexpr WORD asGet = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
inline constexpr WORD asPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// A property that is read and written has two rows with one name and number.
template <typename Self>
struct Member {
    std::wstring_view name;
    DISPID id = 0;
    WORD how = asMethod;
    std::size_t fewest = 0;  ///< arguments; more than `most` is error 450
    std::size_t most = 0;
    void (Self::*run)(Call& call) = nullptr;
};

/// True when two names of members are equal; case does not matter.
bool isSameName(std::wstring_view one, std::wstring_view other);

/// Counted references, names and calls for a class `Self` that has `static std::span<const Member<Self>> members()`.
/// No exception leaves an object. `Interface` is IDispatch or one that begins with it; then `Self` overrides
/// `isInterface`.
template <typename Self, typename Interface = IDispatch>
class AutomationObject : public Interface {
  public:
    AutomationObject() = default;
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = interfaceOf(id);
        if (*out == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** out) override {
        if (out != nullptr) {
            *out = nullptr;
        }
        return DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (names == nullptr || ids == nullptr || count == 0) {
            return E_INVALIDARG;
        }
        for (UINT i = 0; i < count; ++i) {
            ids[i] = DISPID_UNKNOWN;  // no argument has a name
        }
        for (const Member<Self>& member : Self::members()) {
            if (isSameName(member.name, names[0])) {
                ids[0] = member.id;
                return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD how, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* info, UINT*) override {
        const Member<Self>* member = find(id, how);
        if (member == nullptr) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (parameters == nullptr) {
            return E_INVALIDARG;
        }
        if (parameters->cArgs < member->fewest || parameters->cArgs > member->most) {
            return DISP_E_BADPARAMCOUNT;
        }
        const auto held = Ref<IDispatch>::sharing(this);  // the caller may release this object during the call
        return guarded(info, [&] {
            Call call(*parameters);
            (static_cast<Self*>(this)->*member->run)(call);
            if (result != nullptr) {
                call.result().detachTo(result);
            }
        });
    }

  protected:
    virtual ~AutomationObject() = default;
    /// The interface of this id, without a reference; null when the object does not have it.
    virtual void* interfaceOf(REFIID id) {
        const bool isThis = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
        return isThis ? static_cast<Interface*>(this) : nullptr;
    }

  private:
    static const Member<Self>* find(DISPID id, WORD how) {
        for (const Member<Self>& member : Self::members()) {
            if (member.id == id && (member.how & how) != 0) {
                return &member;
            }
        }
        return nullptr;
    }

    CountedObject counted_;
    std::atomic<ULONG> references_{1};
};

/// A new object of ours, with its one reference.
template <typename Self, typename... Parts>
Ref<Self> makeObject(Parts&&... parts) {
    return Ref<Self>::taking(new Self(std::forward<Parts>(parts)...));
}

/// As a value for a caller.
template <typename Self>
Variant objectVariant(const Ref<Self>& object) {
    return Variant::object(Ref<IDispatch>::sharing(object.get()));
}

}  // namespace velmora::com
