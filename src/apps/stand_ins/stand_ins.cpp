#include "velmora/apps/stand_ins/stand_ins.h"

#include <memory>

#include "velmora/adapters/host/delivery_notes.h"
#include "velmora/adapters/host/work_orders.h"

namespace velmora::stand_ins {

void registerStandIns(components::ComponentFactory& factory, screen::Screen& screen, system::Services&,
                      const system::Clock&) {
    factory.add("KOLTAR.KOLTARD", [&screen] { return std::make_unique<host::WorkOrderViewer>(screen); });
    factory.add("SORVEL.SORVELCOMP", [&screen] { return std::make_unique<host::DeliveryNoteViewer>(screen); });
}

}  // namespace velmora::stand_ins
