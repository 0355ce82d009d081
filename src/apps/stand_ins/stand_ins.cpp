#include "velmora/apps/stand_ins/stand_ins.h"

namespace velmora::stand_ins {

void registerStandIns(components::ComponentFactory&, screen::Screen&, system::Services&, const system::Clock&) {}

}  // namespace velmora::stand_ins
