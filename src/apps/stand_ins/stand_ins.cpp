#include "velmora/apps/stand_ins/stand_ins.h"

#include "velmora/adapters/documents/grid_spreadsheet.h"

namespace velmora::stand_ins {

void registerStandIns(components::ComponentFactory& factory, screen::Screen& screen, system::Services& services,
                      const system::Clock& clock) {
    factory.add("LIMBAR.jLimbar",
                [&] { return std::make_unique<documents::GridSpreadsheet>(screen, services, clock); });
}

}  // namespace velmora::stand_ins
