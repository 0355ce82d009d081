#include "velmora/apps/component_class/place.h"

#include <mutex>

#include "velmora/shell/vmora.h"

namespace velmora::component {

std::shared_ptr<Place> Place::shared(const Module& module) {
    static std::mutex creation;
    static std::weak_ptr<Place> current;
    const std::lock_guard lock(creation);
    std::shared_ptr<Place> place = current.lock();
    if (!place) {
        place = std::make_shared<Place>(module);
        current = place;
    }
    return place;
}

Place::Place(const Module& module)
    : surroundings_(module.makeSurroundings(module.handle)),
      desk_{.screen = surroundings_->screen(),
            .components = components_,
            .services = surroundings_->services(),
            .clock = surroundings_->clock()} {
    surroundings_->addComponents(components_);
}

Place::~Place() {
    shell::gVMORA.reset();
}

}  // namespace velmora::component
