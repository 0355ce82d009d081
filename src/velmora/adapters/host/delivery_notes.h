#pragma once
// SORVEL.SORVELCOMP for programs without a host: a delivery note of a purchase in a read-only form.

#include <cstdint>

#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::host {

class DeliveryNoteViewer final : public components::DeliveryNotes {
  public:
    /// The screen must outlive the component.
    explicit DeliveryNoteViewer(screen::Screen& screen) : screen_(screen) {}

    void setMyBd(session::Session& session) override { session_ = &session; }

    /// Shows the note with this CAC_ID and returns when its form is closed; a message box reports that there is none.
    /// `flag` is ignored: the form is always read-only. Errors: 91 without a session; the database's.
    void jLoad(std::int32_t id, bool flag) override;

  private:
    screen::Screen& screen_;
    session::Session* session_ = nullptr;
};

}  // namespace velmora::host
