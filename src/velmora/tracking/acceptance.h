#pragma once
// A proposal that the customer has accepted becomes a work order: the order, the mark on the proposal, sprocket data,
// materials and route.

#include <functional>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/tracking_fields.h"
#include "velmora/tracking/work_order.h"

namespace velmora::tracking {

class Acceptance {
  public:
    /// All references must outlive it. `reload` fills the list anew from the criteria on the form.
    Acceptance(TrackingFields& fields, session::Session& session, const session::KestraUtil& oUtil,
               const platform::Desk& desk, std::function<void()> reload)
        : fields_(fields), session_(session), oUtil_(oUtil), desk_(desk), reload_(std::move(reload)) {}

    /// Accepts the proposal on the current row of the list, with what stands in the detail fields. Does nothing without
    /// a row and for a proposal that is accepted. What fails before the order is stored leaves nothing and is told;
    /// what fails afterwards leaves what was stored and goes up as an error. Errors also: those of the gate and of the
    /// order's number, which nothing traps.
    void msAceptarPresupuesto();

  private:
    /// How a proposal stands in the database, whatever the list shows.
    struct Standing {
        enum State { unknown, pending, beingAccepted, accepted };
        State state = unknown;
        std::string orderNumber{};  ///< of an accepted one
    };

    bool isWithinCredit();
    bool isConfirmed();
    bool openOrder(const sql::Recordset& proposal, WorkOrder& order);
    Standing begin(const sql::Recordset& proposal, WorkOrder& order);
    void tellAcceptedElsewhere(const Standing& standing);
    bool completeOrder(const sql::Recordset& proposal, WorkOrder& order);
    bool trapped(const std::function<void()>& step);
    void undo();
    void tell(const runtime::RuntimeError& error);
    void succeed(const sql::Recordset& proposal, const WorkOrder& order);

    sql::Connection& connection() { return session_.Connection(); }

    TrackingFields& fields_;
    session::Session& session_;
    const session::KestraUtil& oUtil_;
    const platform::Desk& desk_;
    std::function<void()> reload_;
};

}  // namespace velmora::tracking
