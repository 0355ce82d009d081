#pragma once
// The buttons in the history's cells: load an earlier proposal, show its work order.

#include "velmora/estimate/field_map.h"
#include "velmora/platform/desk.h"
#include "velmora/proposal/history.h"
#include "velmora/proposal/loading.h"

namespace velmora::proposal {

class HistoryGrid {
  public:
    struct Collaborators {
        History& history;
        Loading& loading;
    };

    HistoryGrid(estimate::FieldMap& fields, Collaborators peers, session::Session& session, platform::Desk& desk)
        : f_(fields), peers_(peers), session_(session), desk_(desk) {}

    /// The button of the number asks and loads the proposal read-only; that of the order passes its number to the
    /// host's order component. Errors: 429 when that component is missing; its own; the database's.
    void dbgDPI_ButtonClick(int column);

  private:
    void openProposal();
    void openOrder();

    estimate::FieldMap& f_;
    Collaborators peers_;
    session::Session& session_;
    platform::Desk& desk_;
};

}  // namespace velmora::proposal
