#pragma once
// What the class needs beside its host: screen, services, clock, components. A DLL states them by one function.

#include <memory>

#include "velmora/adapters/com/host_session.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/system/system.h"

namespace velmora::component {

/// Made when the first instance is created, destroyed after the last one, outside of the module's start and end.
class Surroundings {
  public:
    virtual ~Surroundings() = default;
    virtual screen::Screen& screen() = 0;
    virtual system::Services& services() = 0;
    virtual const system::Clock& clock() = 0;

    /// Registers the components; by default the host's.
    virtual void addComponents(components::ComponentFactory& factory);
    /// The session for the object that `MyBd` is set to; by default it is called as a host's session.
    virtual std::shared_ptr<com::HostedSession> sessionOf(const com::LateObject& host);
};

/// `module`: the DLL, for what is created with its handle.
using MakeSurroundings = std::unique_ptr<Surroundings> (*)(HINSTANCE__* module);

/// The DLL that holds the class.
struct Module {
    HINSTANCE__* handle = nullptr;
    MakeSurroundings makeSurroundings = nullptr;
};

}  // namespace velmora::component
