#pragma once
// KOLTAR.KOLTARD for programs without a host: a work order in a read-only form.

#include <cstdint>

#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::host {

class WorkOrderViewer final : public components::WorkOrders {
  public:
    /// The screen must outlive the component.
    explicit WorkOrderViewer(screen::Screen& screen) : screen_(screen) {}

    void setMyBd(session::Session& session) override { session_ = &session; }

    /// Shows the order with this ORDEN_NUM and returns when its form is closed; a message box reports that there is
    /// none. Errors: 91 without a session; the database's.
    void jLoad(std::int32_t number) override;

  private:
    screen::Screen& screen_;
    session::Session* session_ = nullptr;
};

}  // namespace velmora::host
