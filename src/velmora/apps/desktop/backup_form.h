#pragma once
// The window of the copies of the database: when they were made, one more by hand, one put back.

#include <optional>
#include <vector>

#include "velmora/apps/backup/copies.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"

namespace velmora::desktop {

class BackupForm : public screen::Form {
  public:
    /// Desk and copies must outlive the form.
    BackupForm(platform::Desk& desk, backup::Copies& copies);

    /// The copy that the user wants put back, which needs a closed database; none when the window was just closed.
    const std::optional<backup::Copy>& wanted() const { return wanted_; }

  private:
    void arrange();
    void wire();
    void list();
    void make();
    void restore();

    platform::Desk& desk_;
    backup::Copies& copies_;
    std::vector<backup::Copy> listed_;
    std::optional<backup::Copy> wanted_;
    screen::Label lblCopias_{*this, "lblCopias"};
    screen::ComboBox cboCopias_{*this, "cboCopias"};
    screen::Button cmdCopiar_{*this, "cmdCopiar"};
    screen::Button cmdRestaurar_{*this, "cmdRestaurar"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

/// "22/11/2026 14:30"
std::string shownMoment(runtime::Date moment);

/// What the start window says of the copies: when the last one was made, and that it is too old.
std::string shownState(const backup::Copies& copies);

}  // namespace velmora::desktop
