#pragma once
// The host's components, created by their ProgIDs and called by the names of their members.

#include "velmora/platform/components/components.h"

namespace velmora::com {

/// Registers the five components under their ProgIDs. A component that is not installed is error 429 when it is
/// created. Those that take the session get the host's own object; error 13 for a session that does not come from a
/// host (com::HostedSession).
void registerHostComponents(components::ComponentFactory& factory);

}  // namespace velmora::com
