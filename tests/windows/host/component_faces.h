#pragma once
// The host's components that print, write spreadsheets and scan, as the component calls them: our own stand-ins behind
// late-bound objects.

#include "velmora/adapters/painting/graphics.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/system/system.h"

#include "class_objects.h"

namespace velmora::wine_host {

/// What the components work with; everything must outlive them.
struct HostDesk {
    session::Session& session;
    IDispatch* sessionFace;  ///< the one object that a component takes as its session
    screen::Screen& screen;
    system::Services& services;
    const system::Clock& clock;
    std::string programs;  ///< the folder of velmora-scan
};

/// VELMORAIMP.VMORAIMP, LIMBAR.jLimbar and MIRTOL.jMirtol.
void offerComponents(ClassObjects& classes, const HostDesk& desk);

}  // namespace velmora::wine_host
