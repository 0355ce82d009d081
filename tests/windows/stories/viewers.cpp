#include "viewers.h"

#include <array>

#include "velmora/adapters/host/delivery_notes.h"
#include "velmora/adapters/host/work_orders.h"

#include "story_desk.h"

namespace velmora::stories {

namespace {

std::unique_ptr<com::HostSession> sessionOf(com::Call& call) {
    return std::make_unique<com::HostSession>(com::LateObject(call.object(0)));
}

/// With its session when it has been given one.
template <typename Viewer>
Viewer viewerOf(const std::unique_ptr<com::HostSession>& session) {
    Viewer viewer(currentDesk->watchedScreen());
    if (session != nullptr) {
        viewer.setMyBd(*session);
    }
    return viewer;
}

}  // namespace

std::span<const com::Member<WorkOrderObject>> WorkOrderObject::members() {
    using com::Member;
    static constexpr std::array table{
        Member<WorkOrderObject>{
            .name = L"MyBd", .id = 1, .how = com::asPut, .fewest = 1, .most = 1, .run = &WorkOrderObject::setMyBd},
        Member<WorkOrderObject>{.name = L"jLoad", .id = 2, .fewest = 1, .most = 1, .run = &WorkOrderObject::jLoad},
    };
    return table;
}

void WorkOrderObject::setMyBd(com::Call& call) {
    session_ = sessionOf(call);
}

void WorkOrderObject::jLoad(com::Call& call) {
    viewerOf<host::WorkOrderViewer>(session_).jLoad(call.value(0).toLong());
}

std::span<const com::Member<DeliveryNoteObject>> DeliveryNoteObject::members() {
    using com::Member;
    static constexpr std::array table{
        Member<DeliveryNoteObject>{
            .name = L"MyBd", .id = 1, .how = com::asPut, .fewest = 1, .most = 1, .run = &DeliveryNoteObject::setMyBd},
        Member<DeliveryNoteObject>{
            .name = L"jLoad", .id = 2, .fewest = 2, .most = 2, .run = &DeliveryNoteObject::jLoad},
    };
    return table;
}

void DeliveryNoteObject::setMyBd(com::Call& call) {
    session_ = sessionOf(call);
}

void DeliveryNoteObject::jLoad(com::Call& call) {
    viewerOf<host::DeliveryNoteViewer>(session_).jLoad(call.value(0).toLong(), call.value(1).toBool());
}

}  // namespace velmora::stories
