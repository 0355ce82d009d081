#include "class_objects.h"

#include <utility>

#include "velmora/platform/runtime/errors.h"

#include "variants.h"

namespace velmora::wine_host {

namespace {

class ClassObject final : public IClassFactory {
  public:
    explicit ClassObject(std::function<Object()> make) : make_(std::move(make)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
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
        *out = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        try {
            return make_()->QueryInterface(id, out);
        } catch (...) {
            return E_FAIL;
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    ~ClassObject() = default;
    std::function<Object()> make_;
    ULONG references_ = 1;
};

void mustWrite(LSTATUS status) {
    if (status != ERROR_SUCCESS) {
        runtime::raise(runtime::invalidProcedureCall);
    }
}

void writeText(const std::string& key, const char* name, std::string_view value) {
    const std::u16string text = wide(value);
    const std::u16string wideName = name == nullptr ? std::u16string() : wide(name);
    mustWrite(RegSetKeyValueW(HKEY_CLASSES_ROOT, wide(key).c_str(), name == nullptr ? nullptr : wideName.c_str(),
                              REG_SZ, text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(char16_t))));
}

std::string textOfId(const CLSID& id) {
    OLECHAR text[39] = {};
    StringFromGUID2(id, text, 39);
    return textOf(text, 38);
}

}  // namespace

ClassObjects::~ClassObjects() {
    for (const DWORD registration : registrations_) {
        CoRevokeClassObject(registration);
    }
}

void ClassObjects::add(std::string_view progId, const CLSID& id, std::function<Object()> make) {
    CLSID known{};
    if (CLSIDFromProgID(wide(progId).c_str(), &known) < 0) {
        writeText(std::string(progId) + "\\CLSID", nullptr, textOfId(id));
        known = id;
    }
    IClassFactory* object = new ClassObject(std::move(make));
    DWORD registration = 0;
    const HRESULT done = CoRegisterClassObject(known, object, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration);
    object->Release();
    if (done < 0) {
        runtime::raise(runtime::invalidProcedureCall);
    }
    registrations_.push_back(registration);
}

void registerModule(std::string_view progId, const CLSID& id, std::string_view module) {
    const std::string text = textOfId(id);
    writeText(std::string(progId) + "\\CLSID", nullptr, text);
    writeText("CLSID\\" + text + "\\InprocServer32", nullptr, module);
    writeText("CLSID\\" + text + "\\InprocServer32", "ThreadingModel", "Apartment");
}

}  // namespace velmora::wine_host
