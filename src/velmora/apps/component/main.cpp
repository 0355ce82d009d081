// velmora.dll: the public class with native windows.

#include <memory>

#include "velmora/adapters/win32/win32_screen.h"
#include "velmora/adapters/win32/win32_services.h"
#include "velmora/apps/component_class/class_object.h"
#include "velmora/apps/component_class/registration.h"
#include "velmora/apps/component_class/type_information.h"

namespace velmora::component {

namespace {

class NativeWindows final : public Surroundings {
  public:
    explicit NativeWindows(HINSTANCE__* module) : screen_(module), services_(module) {}
    screen::Screen& screen() override { return screen_; }
    system::Services& services() override { return services_; }
    const system::Clock& clock() override { return clock_; }

  private:
    win32::Win32Screen screen_;
    win32::Win32Services services_;
    system::SystemClock clock_;
};

std::unique_ptr<Surroundings> nativeWindows(HINSTANCE__* module) {
    return std::make_unique<NativeWindows>(module);
}

Module ownModule{.handle = nullptr, .makeSurroundings = nativeWindows};

}  // namespace

}  // namespace velmora::component

using namespace velmora::component;

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        ownModule.handle = module;
    } else if (reason == DLL_PROCESS_DETACH) {
        leave();
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceOfClass, LPVOID* out) {
    return classObject(ownModule, id, interfaceOfClass, out);
}

STDAPI DllCanUnloadNow() {
    return canUnload();
}

STDAPI DllRegisterServer() {
    return registerClass(systemPlaces(), pathOf(ownModule.handle));
}

STDAPI DllUnregisterServer() {
    return unregisterClass(systemPlaces());
}
