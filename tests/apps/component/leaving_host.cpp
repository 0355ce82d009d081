// A host that ends while it holds an instance, and another one that has gone before has left its session to it:
// leaving_host DLL. Prints "left" when it ends, and "released" when its session is released after that, which must not
// happen: the host's own objects are gone by then.

#include "velmora/adapters/com/com_headers.h"

namespace {

void say(const char* text, DWORD length) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text, length, &written, nullptr);
}

bool hasLeft = false;

class Session final : public IDispatch {
  public:
    virtual ~Session() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (hasLeft) {
            say("released\n", 9);
        }
        return 1;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
};

constexpr CLSID vmoraClass{0x913f6b81, 0x1338, 0x4d7a, {0xbb, 0xad, 0x90, 0x76, 0xfc, 0x6a, 0x20, 0x73}};
constexpr DISPID myBd = 1;

IDispatch* newInstance(IClassFactory& factory) {
    IDispatch* instance = nullptr;
    factory.CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&instance));
    return instance;
}

bool putSession(IDispatch& instance, IDispatch& session) {
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_DISPATCH;
    argument.pdispVal = &session;
    DISPID name = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{.rgvarg = &argument, .rgdispidNamedArgs = &name, .cArgs = 1, .cNamedArgs = 1};
    return instance.Invoke(myBd, IID_NULL, 0, DISPATCH_PROPERTYPUTREF, &parameters, nullptr, nullptr, nullptr) >= 0;
}

/// True when one instance is left, which is never released.
bool holdInstance(HMODULE module) {
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto entry =
        reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    IClassFactory* factory = nullptr;
    if (entry == nullptr || entry(vmoraClass, IID_IClassFactory, reinterpret_cast<void**>(&factory)) < 0) {
        return false;
    }
    static Session session;
    const IDispatch* held = newInstance(*factory);
    IDispatch* last = newInstance(*factory);
    return held != nullptr && last != nullptr && putSession(*last, session) && last->Release() == 0;
}

}  // namespace

int main(int, char** arguments) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const HMODULE module = LoadLibraryA(arguments[1]);
    if (module == nullptr || !holdInstance(module)) {
        return 1;
    }
    hasLeft = true;
    say("left\n", 5);
    return 0;
}
