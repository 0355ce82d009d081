#pragma once
// An object of a host, written against the interfaces alone: it notes how each member is called and answers as told.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/adapters/com/ref.h"
#include "velmora/adapters/com/variant.h"

namespace velmora::com {

/// One call of a member, with its arguments by position.
class FakeCall {
  public:
    FakeCall(WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info)
        : flags_(flags), parameters_(parameters), result_(result), info_(info) {}

    WORD flags() const { return flags_; }
    UINT count() const { return parameters_.cArgs; }
    VARIANT& argument(UINT position) const { return parameters_.rgvarg[parameters_.cArgs - 1 - position]; }
    sql::Value value(UINT position) const { return Variant::valueOf(argument(position)); }

    HRESULT answer(Variant value) const;
    /// Fails with the three parts of an error.
    HRESULT raise(HRESULT code, std::string_view description, std::string_view source) const;

  private:
    WORD flags_;
    DISPPARAMS& parameters_;
    VARIANT* result_;
    EXCEPINFO* info_;
};

/// How a member was called: "put Tabla(8)", the numbers of the types by position.
struct SeenCalls {
    std::vector<std::string> calls;
};

class FakeObject : public IDispatchEx {
  public:
    using Handler = std::function<HRESULT(FakeCall&)>;

    /// Notes the calls of all objects that share `seen`.
    static Ref<FakeObject> make(std::shared_ptr<SeenCalls> seen = std::make_shared<SeenCalls>()) {
        return Ref<FakeObject>::taking(new FakeObject(std::move(seen)));
    }

    /// As an instance of a script's class: it answers only IDispatchEx.
    void becomeScript() { isScript_ = true; }

    /// The member answers calls with one of these flags; "" is the default member.
    void on(const std::string& name, WORD flags, Handler handler);
    /// A property with a constant value.
    void onGet(const std::string& name, const Variant& value);
    void onPut(const std::string& name);

    SeenCalls& seen() { return *seen_; }
    const std::shared_ptr<SeenCalls>& sharedSeen() const { return seen_; }
    ULONG references() const { return references_; }
    LateObject late() { return LateObject(Ref<IDispatch>::sharing(this)); }
    Variant variant() { return Variant::object(Ref<IDispatch>::sharing(this)); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* info, UINT*) override;
    HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* id) override;
    HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                       EXCEPINFO* info, IServiceProvider*) override;
    HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

  private:
    struct FakeMember {
        std::string name;
        DISPID id;
        WORD flags;
        Handler handler;
    };

    explicit FakeObject(std::shared_ptr<SeenCalls> seen) : seen_(std::move(seen)) {}
    virtual ~FakeObject() = default;
    HRESULT look(std::wstring_view name, DISPID* id) const;
    HRESULT run(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info);

    std::shared_ptr<SeenCalls> seen_;
    std::vector<FakeMember> members_;
    bool isScript_ = false;
    ULONG references_ = 1;
};

}  // namespace velmora::com
