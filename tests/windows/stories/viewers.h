#pragma once
// The host's components with windows of their own: our stand-ins behind late-bound objects. They are in this module,
// not in the host's program, so that the script acts on their forms.

#include <memory>

#include "velmora/adapters/com/automation_object.h"
#include "velmora/adapters/com/host_session.h"

namespace velmora::stories {

/// KOLTAR.KOLTARD.
class WorkOrderObject final : public com::AutomationObject<WorkOrderObject> {
  public:
    static std::span<const com::Member<WorkOrderObject>> members();

  private:
    void setMyBd(com::Call& call);
    void jLoad(com::Call& call);
    std::unique_ptr<com::HostSession> session_;
};

/// SORVEL.SORVELCOMP.
class DeliveryNoteObject final : public com::AutomationObject<DeliveryNoteObject> {
  public:
    static std::span<const com::Member<DeliveryNoteObject>> members();

  private:
    void setMyBd(com::Call& call);
    void jLoad(com::Call& call);
    std::unique_ptr<com::HostSession> session_;
};

}  // namespace velmora::stories
