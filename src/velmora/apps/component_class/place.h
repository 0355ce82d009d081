#pragma once
// What all instances of the class share while there is any.

#include <memory>

#include "velmora/apps/component_class/surroundings.h"
#include "velmora/platform/desk.h"

namespace velmora::component {

class Place {
  public:
    /// The place of the instances that exist; a new one for the first.
    static std::shared_ptr<Place> shared(const Module& module);

    explicit Place(const Module& module);
    /// Without instances nothing can be called any more: the session of the last one is released.
    ~Place();
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    platform::Desk& desk() { return desk_; }
    Surroundings& surroundings() { return *surroundings_; }

  private:
    std::unique_ptr<Surroundings> surroundings_;
    components::ComponentFactory components_;
    platform::Desk desk_;
};

}  // namespace velmora::component
