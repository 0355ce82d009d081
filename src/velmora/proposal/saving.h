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

    /// Stores the proposal: a new row when txtPesu(3) holds no number. True when it was stored. Tells the user of
    /// what is missing, of a refusal, and, unless bSilencio, of success. A stored row is looked at first: one that
    /// was accepted or deleted meanwhile is not written, which is told, and one that another user has changed only
    /// when the user says so. A write that is refused leaves the form as it stood.
    bool msGrabar(bool bSilencio);

    /// True when the last msGrabar wrote nothing for what another user had done to the row.
    bool wasHeldBack() const { return heldBack_; }

    /// Reads whether the proposal on the form may still be written. False when it was accepted or deleted meanwhile,
    /// which is told as a save tells it. Errors: the database's.
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
    std::optional<NewRow> newRow_;  ///< of the write that runs; put on the form once it is there for good
    bool heldBack_ = false;
    int calls_ = 0;
};

/// A line of cost: the product of two numbers under the mask of amounts, "0,00" when either is none.
std::string FnImporteFila(const std::string& a, const std::string& b);

}  // namespace velmora::proposal
