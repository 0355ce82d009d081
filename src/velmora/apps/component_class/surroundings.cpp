#include "velmora/apps/component_class/surroundings.h"

#include "velmora/adapters/com/host_components.h"

namespace velmora::component {

void Surroundings::addComponents(components::ComponentFactory& factory) {
    com::registerHostComponents(factory);
}

std::shared_ptr<com::HostedSession> Surroundings::sessionOf(const com::LateObject& host) {
    return std::make_shared<com::HostSession>(host);
}

}  // namespace velmora::component
