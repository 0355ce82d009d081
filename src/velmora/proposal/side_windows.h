#pragma once
// Windows opened from the main form: the purchase prices of a material, and the documents of the proposal.

#include "velmora/estimate/field_map.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::proposal {

class SideWindows {
  public:
    SideWindows(estimate::FieldMap& fields, session::Session& session, platform::Desk& desk)
        : f_(fields), session_(session), desk_(desk) {}

    /// The last purchases of the material chosen for the disc (0), the hub (1) or the rack (2). Returns when the window
    /// is closed. Errors: the database's.
    void cmdHPrecios_Click(int Index);

    /// The documents of a proposal with a number; does nothing for a new one. Returns when the window is closed.
    /// Errors: 6 for a number beyond 32 bits; the database's.
    void cmdDoc_Click();

  private:
    struct Material {
        const screen::ComboBox& list;
        const sql::ListenedRecordset& rows;
    };
    Material material(int Index) const;

    estimate::FieldMap& f_;
    session::Session& session_;
    platform::Desk& desk_;
};

}  // namespace velmora::proposal
