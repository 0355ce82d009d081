#pragma once
// Turns a proposal that the customer has accepted into a work order: the order's row, the mark on the proposal,
// sprocket data, materials and route.

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/acceptance_step.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

class Acceptance {
  public:
    /// All references must outlive it. `reload` refills the list from the criteria on the form.
    Acceptance(TrackingFields& fields, session::Session& session, const session::KestraUtil& oUtil,
               const platform::Desk& desk, std::function<void()> reload)
        : fields_(fields), session_(session), oUtil_(oUtil), desk_(desk), reload_(std::move(reload)) {}

    /// Accepts the proposal that the panel shows, with the values of the panel's fields. Does nothing without a row or
    /// for an accepted proposal. A proposal that another user has accepted, changed or deleted since it was shown gets
    /// no order: the user is informed, and the panel keeps what was typed. A failure before the order is stored leaves
    /// nothing behind and is shown; one afterwards leaves what was stored and propagates as an error. Errors also:
    /// those of the credit check and of the order's number, which are not trapped; no transaction is open after them.
    void msAceptarPresupuesto();

  private:
    /// State of a proposal in the database, independent of the list.
    struct Standing {
        enum State { failed, gone, accepted, changed, ordered, pending };
        State state = pending;
        std::string orderNumber{};  ///< when accepted
        std::int32_t unmarked = 0;  ///< when ordered: its latest order, with which the proposal is not marked
        std::optional<runtime::RuntimeError> error{};  ///< when the read failed
    };

    bool isWithinCredit();
    bool isConfirmed();
    bool openOrder(const sql::Recordset& proposal, WorkOrder& order);
    Standing begin(const sql::Recordset& proposal, WorkOrder& order);
    Standing look(const sql::Recordset& proposal, std::int32_t nextNumber);
    bool mayBeMarkedYet(const Standing& standing, const sql::Recordset& proposal) const;
    Standing waitForMark(const sql::Recordset& proposal, WorkOrder& order, Standing standing);
    void refuse(const Standing& standing);
    bool completeOrder(const sql::Recordset& proposal, WorkOrder& order);
    std::optional<runtime::RuntimeError> undone(const std::function<void()>& step);
    void undo();
    void undoQuietly();
    void tell(const runtime::RuntimeError& error);
    void succeed(const sql::Recordset& proposal, const WorkOrder& order);

    sql::Connection& connection() { return session_.Connection(); }

    TrackingFields& fields_;
    session::Session& session_;
    const session::KestraUtil& oUtil_;
    const platform::Desk& desk_;
    std::function<void()> reload_;
    /// By proposal: number of the order stored by this form whose mark on the proposal failed.
    std::map<std::int32_t, std::int32_t> unmarkedHere_;
};

}  // namespace velmora::tracking
