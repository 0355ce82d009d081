#pragma once
// The row of the proposal on the form as it was when loaded, to be compared with the stored row before a write, so that
// changes by other users are not overwritten unnoticed.

#include <chrono>
#include <string>
#include <vector>

#include "velmora/labour/proposal_standing.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/session/session.h"

namespace velmora::proposal {

class StoredProposal {
  public:
    explicit StoredProposal(session::Session& session) : session_(session) {}

    /// The row of a number as it stands now; a set without rows when there is none. Errors: the database's.
    sql::Recordset read(const std::string& number) const;

    /// The row that the form shows from now on; a closed set when it shows none.
    void remember(sql::Recordset row) {
        shown_ = std::move(row);
        ++changes_;
    }
    /// How often another row, or none, has come to be on the form.
    int changes() const { return changes_; }

    /// Checks the stored row, inside the transaction of its write: `changed` when one of the columns to be written no
    /// longer holds the value that was loaded; never for a number other than that of the row on the form. Errors: the
    /// database's.
    session::RowState look(const std::string& number, const std::vector<std::string>& columns);

    /// The columns of the row on the form but those that belong to its order: acceptance, the customer's order and its
    /// dates, which are written while the proposal is tracked. None when no row is on the form.
    std::vector<std::string> ownColumns() const;

    /// The result of the last look or readStanding.
    const labour::ProposalStanding& standing() const { return standing_; }

    /// Reads how the proposal stands, outside any transaction. Errors: the database's.
    const labour::ProposalStanding& readStanding(const std::string& number);

  private:
    bool isBeingAccepted(const std::string& number);

    session::Session& session_;
    sql::Recordset shown_;
    int changes_ = 0;
    labour::ProposalStanding standing_;
    std::string unmarkedOrder_;
    std::chrono::milliseconds waited_{0};
};

}  // namespace velmora::proposal
