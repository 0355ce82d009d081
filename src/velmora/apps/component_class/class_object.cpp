#include "velmora/apps/component_class/class_object.h"

#include <atomic>

#include "velmora/adapters/com/errors.h"
#include "velmora/adapters/com/object_count.h"
#include "velmora/apps/component_class/vmora_object.h"

namespace velmora::component {

namespace {

std::atomic<long> locks{0};

class VmoraClass final : public IClassFactory {
  public:
    explicit VmoraClass(const Module& module) : module_(module) {}
    VmoraClass(const VmoraClass&) = delete;
    VmoraClass& operator=(const VmoraClass&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (out == nullptr) {
            return E_POINTER;
        }
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *out = known ? this : nullptr;
        if (!known) {
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
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        com::Ref<VmoraObject> made;
        const HRESULT answer = com::guarded(nullptr, [&] { made = com::makeObject<VmoraObject>(module_); });
        return answer < 0 ? answer : made->QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        locks += lock != FALSE ? 1 : -1;
        return S_OK;
    }

  private:
    virtual ~VmoraClass() = default;

    com::CountedObject counted_;
    Module module_;
    std::atomic<ULONG> references_{1};
};

}  // namespace

HRESULT classObject(const Module& module, REFCLSID wanted, REFIID id, void** out) noexcept {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    if (!IsEqualCLSID(wanted, classId)) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    com::Ref<VmoraClass> made;
    const HRESULT answer = com::guarded(nullptr, [&] { made = com::Ref<VmoraClass>::taking(new VmoraClass(module)); });
    return answer < 0 ? answer : made->QueryInterface(id, out);
}

HRESULT canUnload() noexcept {
    return com::objectsInUse() == 0 && locks == 0 ? S_OK : S_FALSE;
}

void leave() noexcept {
    com::leaveReferences();
}

}  // namespace velmora::component
