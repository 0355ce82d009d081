// The module of the stories: its classes as COM asks for them. The host enters them in the registry.

#include <array>
#include <memory>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/adapters/com/errors.h"
#include "velmora/adapters/com/object_count.h"
#include "velmora/apps/component_class/class_object.h"
#include "velmora/apps/component_class/vmora_interface.h"
#include "velmora/platform/runtime/errors.h"

#include "player.h"
#include "story_desk.h"
#include "viewers.h"

namespace {

using namespace velmora;

using Make = IDispatch* (*)();

template <typename Class>
IDispatch* make() {
    return new Class();
}

struct OfferedClass {
    CLSID id;
    Make make;
};

// The host names the same identifiers.
constexpr CLSID classNumber(unsigned char number) {
    return {0x5b6a2c10, 0x7d1e, 0x4f0a, {0x9c, 0x31, 0x2a, 0x6e, 0x41, 0x53, 0x20, number}};
}

constexpr CLSID publicClass = classNumber(2);

constexpr std::array offered{
    OfferedClass{classNumber(1), make<stories::Player>},
    OfferedClass{classNumber(3), make<stories::WorkOrderObject>},
    OfferedClass{classNumber(4), make<stories::DeliveryNoteObject>},
};

class ClassObject final : public IClassFactory {
  public:
    explicit ClassObject(Make make) : make_(make) {}

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
        return com::guarded(IID_IClassFactory, [&] {
            IDispatch* made = make_();
            made->QueryInterface(id, out);
            made->Release();
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    ~ClassObject() = default;
    Make make_;
    com::CountedObject counted_;
    ULONG references_ = 1;
};

/// The public class works on the desk of the story.
class StorySurroundings final : public component::Surroundings {
  public:
    /// Error 91 before a story is opened.
    StorySurroundings() {
        if (stories::currentDesk == nullptr) {
            runtime::raise(runtime::objectNotSet);
        }
    }
    screen::Screen& screen() override { return stories::currentDesk->watchedScreen(); }
    system::Services& services() override { return stories::currentDesk->watchedServices(); }
    const system::Clock& clock() override { return stories::currentDesk->clock(); }
};

std::unique_ptr<component::Surroundings> storySurroundings(HINSTANCE__*) {
    return std::make_unique<StorySurroundings>();
}

component::Module ownModule{.handle = nullptr, .makeSurroundings = storySurroundings};

}  // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        ownModule.handle = module;
    } else if (reason == DLL_PROCESS_DETACH) {
        component::leave();
    }
    return TRUE;
}

extern "C" HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** out) {
    if (IsEqualCLSID(publicClass, id)) {
        return component::classObject(ownModule, component::classId, interfaceId, out);
    }
    *out = nullptr;
    for (const OfferedClass& one : offered) {
        if (IsEqualCLSID(one.id, id)) {
            auto* object = new ClassObject(one.make);
            const HRESULT answer = object->QueryInterface(interfaceId, out);
            object->Release();
            return answer;
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT WINAPI DllCanUnloadNow() {
    return component::canUnload();
}
