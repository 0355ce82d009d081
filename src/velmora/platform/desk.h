#pragma once
// What a running program offers its forms. The program makes one and keeps it alive as long as any form.

#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/system/system.h"

namespace velmora::platform {

struct Desk {
    screen::Screen& screen;
    const components::ComponentFactory& components;
    system::Services& services;
    const system::Clock& clock;
};

}  // namespace velmora::platform
