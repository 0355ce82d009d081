#pragma once
// Every form of the desktop program, on the demonstration workshop, for what holds for all of them.

#include <memory>
#include <vector>

#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/picture_forms.h"
#include "velmora/apps/desktop/settings_form.h"
#include "velmora/apps/desktop/workshop.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/shell/vmora.h"

#include "support/no_services.h"
#include "support/picture_moment.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {

/// Needs a QApplication.
class EveryForm {
  public:
    EveryForm();
    /// Those with a picture, the tables of the workshop's own data, and those around them.
    std::vector<WindowPicture> forms();
    qt::QtScreen& screen() { return screen_; }

  private:
    std::vector<WindowPicture> aroundForms();

    const support::PictureClock clock_;
    const std::unique_ptr<Workshop> workshop_ = openWorkshop(engines::knownEngines(clock_), ":memory:", clock_);
    adapters::StandInSession session_{workshop_->connection()};
    qt::QtScreen screen_;
    support::NoServices services_;
    const components::ComponentFactory components_;
    platform::Desk desk_{screen_, components_, services_, clock_};
    shell::VMORA vmora_{desk_};
    support::TemporaryFolder folder_;
    backup::Copies copies_{folder_.file("taller.db"), clock_};
    const SettingsTools settings_{.companyFile = folder_.path() / "taller.db.ajustes",
                                  .companyFileIn = {},
                                  .userFile = folder_.path() / "usuario.ajustes",
                                  .chooseFolder = {},
                                  .isPicture = {},
                                  .setLetterSize = {}};
};

}  // namespace velmora::desktop
