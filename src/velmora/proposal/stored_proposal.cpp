#include "velmora/proposal/stored_proposal.h"

#include <algorithm>

#include "velmora/estimate/stored_fields.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/kept_row.h"

namespace velmora::proposal {

using session::RowState;

namespace {

const std::vector<std::string> key{"DPI_Id"};

bool belongsToOrder(const std::string& column) {
    return std::ranges::any_of(estimate::columnsOfTheOrder,
                               [&](std::string_view each) { return runtime::UCase(each) == runtime::UCase(column); });
}

/// Back-off while another client has committed an order but not yet marked the proposal. An order unmarked for longer
/// was left by a failure and is ignored.
constexpr std::chrono::seconds patience{3};

/// The order of an acceptance in progress is searched among so many of the highest numbers.
constexpr std::int64_t latestNumbers = 100;

}  // namespace

sql::Recordset StoredProposal::read(const std::string& number) const {
    return sql::keptRow(session_.Connection().execute("Select * from DPI where DPI_Id = " + number));
}

const labour::ProposalStanding& StoredProposal::readStanding(const std::string& number) {
    standing_ = labour::standingIn(
        session_.Connection().execute("Select DPI_FAcepta,DPI_Orden from DPI where DPI_Id = " + number));
    return standing_;
}

RowState StoredProposal::look(const std::string& number, const std::vector<std::string>& columns) {
    const sql::Recordset now = read(number);
    standing_ = labour::standingIn(now);
    if (standing_.state != labour::ProposalStanding::pending) {
        return RowState::closed;
    }
    if (isBeingAccepted(number)) {
        return RowState::inUse;
    }
    const bool isKnown = shown_.isOpen() && !sql::differIn(key, shown_, now);
    return isKnown && sql::differIn(columns, shown_, now) ? RowState::changed : RowState::asShown;
}

std::vector<std::string> StoredProposal::ownColumns() const {
    std::vector<std::string> columns;
    if (shown_.isOpen()) {
        for (const sql::Column& column : shown_.columns()) {
            if (!belongsToOrder(column.name)) {
                columns.push_back(column.name);
            }
        }
    }
    return columns;
}

// An acceptance commits its order before it marks the proposal: in between the proposal still looks pending.
bool StoredProposal::isBeingAccepted(const std::string& number) {
    const sql::Recordset highest = session_.Connection().execute("Select max(orden_NUM) FROM ORDEN");
    if (highest[0].isNull()) {
        return false;
    }
    const std::string from = runtime::CStr(std::int64_t{highest[0].toLong()} - latestNumbers);
    const sql::Recordset own = session_.Connection().execute(
        "Select max(orden_NUM) FROM ORDEN where orden_NUM >= " + from + " and ORDEN_IdDPI = " + number);
    if (own[0].isNull()) {
        return false;
    }
    const std::string order = own[0].toText();
    if (order != unmarkedOrder_) {
        unmarkedOrder_ = order;
        waited_ = std::chrono::milliseconds(0);
    } else {
        waited_ += session::pauseInUse;
    }
    return waited_ < patience;
}

}  // namespace velmora::proposal
