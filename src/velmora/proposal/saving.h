#pragma once
// The main form written to one row of DPI, in one transaction, and read back.

#include <optional>
#include <string>

#include "velmora/estimate/field_map.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/system/system.h"
#include "velmora/proposal/loading.h"
#include "velmora/proposal/stored_proposal.h"

namespace velmora::proposal {

class Saving {
  public:
    struct Collaborators {
        Loading& loading;
        StoredProposal& stored;
    };

    Saving(estimate::FieldMap& fields, Collaborators peers, session::Session& session, screen::Screen& screen,
           const system::Clock& clock)
        : f_(fields), peers_(peers), session_(session), screen_(screen), clock_(clock) {}

    /// Stores the proposal: a new row when the form shows no number. True when it was stored. Messages tell what is
    /// missing, a refusal, and, unless bSilencio, success. Before an update the stored row is checked: one accepted or
    /// deleted meanwhile is refused, one changed by another user is overwritten only after a question. A refused write
    /// leaves the form as it was.
    bool msGrabar(bool bSilencio);

    /// True when the last msGrabar wrote nothing because another user had changed, accepted or deleted the row.
    bool wasHeldBack() const { return heldBack_; }

    /// Reads whether the proposal on the form may still be written. False, after the message of a save, when it was
    /// accepted or deleted meanwhile. Errors: the database's.
    bool mayBeWritten();

  private:
    /// What the server gave a new row.
    struct NewRow {
        std::string number;
        std::string date;
        std::string discCut;
    };

    bool isComplete();
    session::Written write(bool isNew, std::string& error);
    session::RowState look(bool isNew);
    bool writeRow(bool isNew, std::string& error);
    void reload();
    void addFields();
    NewRow readBackNewRow();
    void put(const NewRow& row);
    void refuse(bool isNew, const std::string& error);

    estimate::FieldMap& f_;
    Collaborators peers_;
    session::Session& session_;
    screen::Screen& screen_;
    const system::Clock& clock_;
    std::optional<NewRow> newRow_;  ///< of the running write; put on the form after its commit
    bool heldBack_ = false;
};

/// A line of cost: the product of two numbers under the mask of amounts, "0,00" when either is none.
std::string FnImporteFila(const std::string& a, const std::string& b);

}  // namespace velmora::proposal
