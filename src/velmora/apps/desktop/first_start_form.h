#pragma once
// The window of a start without a database: what is made, or which one is opened instead.

#include <optional>
#include <string>

#include "velmora/apps/desktop/chosen_database.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/system/system.h"

namespace velmora::desktop {

/// What the user wants.
struct FirstStart {
    ChosenDatabase database;
    std::optional<NewRows> make = {};  ///< the file is made with these rows; none: it is there already
};

class FirstStartForm : public screen::Form {
  public:
    /// `reason` tells why the window is there; a new database is made in `newFile`. The services must outlive the form.
    FirstStartForm(const std::string& reason, std::string newFile, system::Services& services);

    /// None when the window was just closed.
    const std::optional<FirstStart>& answer() const { return answer_; }

  private:
    void arrange();
    void wire();
    void choose(FirstStart answer);
    void chooseFile();
    void chooseServer();

    std::string newFile_;
    system::Services& services_;
    std::optional<FirstStart> answer_;
    screen::Label lblMotivo_{*this, "lblMotivo"};
    screen::Label lblNueva_{*this, "lblNueva"};
    screen::Button cmdDemostracion_{*this, "cmdDemostracion"};
    screen::Label lblDemostracion_{*this, "lblDemostracion"};
    screen::Button cmdVacio_{*this, "cmdVacio"};
    screen::Label lblVacio_{*this, "lblVacio"};
    screen::Button cmdAbrir_{*this, "cmdAbrir"};
    screen::Label lblAbrir_{*this, "lblAbrir"};
    screen::TextBox txtServidor_{*this, "txtServidor"};
    screen::Button cmdServidor_{*this, "cmdServidor"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

/// The reason for the window when there is nothing at the file's path.
std::string reasonOfFirstStart(const ChosenDatabase& missing);

}  // namespace velmora::desktop
