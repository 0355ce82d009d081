#pragma once
// A user who accepts one proposal after the other: order, mark, sprocket data, two materials that are cut, and a route
// of two cuts and two labour lines.

#include <cstddef>

#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/acceptance.h"
#include "velmora/tracking/detail.h"

#include "quiet_desk.h"

namespace velmora::bench {

/// Adds so many pending sprockets with disc and hub, of a customer without a credit limit, with two lines of labour
/// each. A proposal can be accepted only once: enough for all iterations, warm-up and recording included.
void addPendingProposals(sql::Connection& connection, int proposals);

/// A list with those proposals, whose current one is accepted, and then the next.
class AcceptingClerk {
  public:
    /// `proposals`: the number of those added.
    AcceptingClerk(session::Session& session, platform::Desk& desk, std::size_t proposals);

    void acceptNext();

  private:
    void list(sql::Connection& connection, std::size_t proposals);
    void fillPanel();

    session::KestraUtil oUtil_;
    screen::Form form_{"frmSeguimiento"};
    tracking::TrackingFields fields_{form_};
    tracking::DetailPanel panel_;
    tracking::Acceptance acceptance_;
};

}  // namespace velmora::bench
