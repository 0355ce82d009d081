#pragma once
// Our own components in place of the host's, for programs that run without the host.

#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/system/system.h"

namespace velmora::stand_ins {

/// Registers every stand-in under the ProgID of the host's component. Screen, services and clock must outlive the
/// factory. `papers`: what the program decides about printed papers.
void registerStandIns(components::ComponentFactory& factory, screen::Screen& screen, system::Services& services,
                      const system::Clock& clock, documents::PaperChoices papers = {});

}  // namespace velmora::stand_ins
