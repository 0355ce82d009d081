#pragma once
// "Acerca de": what a user is asked for when he reports something.

#include <string>

#include "velmora/apps/desktop/database_place.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::desktop {

/// Version, database with its size and number of proposals, and the licences of the libraries, in lines. A connection
/// string is told without its password.
std::string aboutText(sql::Connection& connection, const DatabasePlace& place);

class AboutForm : public screen::Form {
  public:
    /// The text can be selected and copied.
    explicit AboutForm(const std::string& text);

  private:
    screen::TextBox txtTexto_{*this, "txtTexto"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::desktop
