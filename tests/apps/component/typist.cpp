// A DLL with the public class whose user is a program: on the form of proposals it enters a sprocket, saves it and
// closes the form.

#include <array>
#include <iostream>
#include <memory>

#include "velmora/adapters/script/script_screen.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/adapters/script/user.h"
#include "velmora/apps/component_class/class_object.h"
#include "velmora/apps/component_class/registration.h"
#include "velmora/apps/component_class/type_information.h"
#include "velmora/platform/toolkit/key_stroke.h"
#include "velmora/proposal/frm_bercial_pinones.h"

namespace velmora::component {

namespace {

class Typist final : public Surroundings {
  public:
    Typist() {
        screen_.onIdle([this] {
            price(dynamic_cast<proposal::frmBercialPiñones&>(*screen_.forms().back()));
            return false;
        });
    }
    screen::Screen& screen() override { return screen_; }
    system::Services& services() override { return services_; }
    const system::Clock& clock() override { return clock_; }

  private:
    void price(proposal::frmBercialPiñones& form) {
        estimate::FieldMap& fields = form.fields();
        struct Entry {
            screen::TextBox& field;
            const char* text;
        };
        // Pitch, teeth, width of the chain, roller, pieces, customer.
        const std::array entries{Entry{fields.Text1(0), "12,7"},  Entry{fields.Text1(1), "38"},
                                 Entry{fields.Text1(8), "7,75"},  Entry{fields.Text1(2), "8,51"},
                                 Entry{fields.txtPesu(11), "10"}, Entry{fields.txtPesu(0), "1001"}};
        script::User person(journal_);
        for (const Entry& entry : entries) {
            person.set(entry.field, entry.text);
        }
        person.leave(form);
        person.stroke(form, toolkit::strokeOf(screen::Key::f5));
    }

    script::Journal journal_{std::cerr};
    script::Answers answers_;
    script::ScriptScreen screen_{journal_, answers_};
    script::ScriptServices services_{journal_, answers_};
    system::SystemClock clock_;
};

Module ownModule{
    .handle = nullptr,
    .makeSurroundings = [](HINSTANCE__*) -> std::unique_ptr<Surroundings> { return std::make_unique<Typist>(); },
};

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
