#pragma once
// From the list to a proposal, read-only over the form, and to its work order.

#include <functional>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Errors of all: 3021 where a key asks for a row of an empty list; 429 when the host's order component is missing; the
/// component's; the database's.
class Opening {
  public:
    /// `reload` lists anew after a proposal was looked at.
    Opening(TrackingFields& fields, session::Session& session, platform::Desk& desk, std::function<void()> reload)
        : f_(fields), session_(session), desk_(desk), reload_(std::move(reload)) {}

    /// The number's button opens the proposal, the order's the order; neither does anything without rows.
    void dbgDPI_ButtonClick(int column);
    /// F8 opens the proposal, F9 the order, whether there are rows or not.
    void dbgDPI_KeyDown(const screen::KeyDown& key);
    /// Opens the order; nothing without rows.
    void XPButton2_Click();

  private:
    enum class Unloadable { isSkipped, isShown };  ///< a proposal that does not load

    void openProposal(Unloadable unloadable);
    void openOrder();

    TrackingFields& f_;
    session::Session& session_;
    platform::Desk& desk_;
    std::function<void()> reload_;
};

}  // namespace velmora::tracking
