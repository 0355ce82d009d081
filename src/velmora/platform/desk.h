#pragma once
// What a running program provides to its forms. The program creates one, which must outlive every form.

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
