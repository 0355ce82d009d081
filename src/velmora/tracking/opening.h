#pragma once
// Opens the proposal of the current row, read-only above the form, and its work order.

#include <functional>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Errors of all operations: 3021 where a key needs a row of an empty list; 429 when the host's order component is
/// missing; the component's; the database's.
class Opening {
  public:
    /// `reload` refreshes the list after a proposal has been shown.
    Opening(TrackingFields& fields, session::Session& session, platform::Desk& desk, std::function<void()> reload)
        : f_(fields), session_(session), desk_(desk), reload_(std::move(reload)) {}

    /// The button of the number opens the proposal, that of the order its work order; neither does anything without
    /// rows.
    void dbgDPI_ButtonClick(int column);
    /// F8 opens the proposal, F9 the order, without checking for rows.
    void dbgDPI_KeyDown(const screen::KeyDown& key);
    /// Opens the order; does nothing without rows.
    void XPButton2_Click();

  private:
    enum class Unloadable { isSkipped, isShown };  ///< what to do when the proposal fails to load

    void openProposal(Unloadable unloadable);
    void openOrder();

    TrackingFields& f_;
    session::Session& session_;
    platform::Desk& desk_;
    std::function<void()> reload_;
};

}  // namespace velmora::tracking
