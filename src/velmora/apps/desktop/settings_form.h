#pragma once
// The window of the settings: the company on the papers, the offers, and what belongs to this user.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "velmora/apps/settings/user_settings.h"
#include "velmora/paper/company.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"

namespace velmora::desktop {

/// What the form needs besides the desk.
struct SettingsTools {
    std::filesystem::path companyFile;
    /// For a server's database: the company's file in a folder that users may share, or in this user's when it is
    /// empty. None for a database with a file of its own, beside which its company is.
    std::function<std::filesystem::path(const std::string& folder)> companyFileIn;
    std::filesystem::path userFile;
    /// Asks for a folder; nullopt when the user cancels.
    std::function<std::optional<std::string>()> chooseFolder;
    /// Whether these bytes are a picture that papers can bear.
    std::function<bool(const std::string&)> isPicture;
    /// Applies the size of the letters, in percent, to the windows.
    std::function<void(int)> setLetterSize;
};

/// Nothing is written before it is saved; Esc leaves without a question. What cannot be saved stays in the form.
class SettingsForm : public screen::Form {
  public:
    /// Desk and tools must outlive the form.
    SettingsForm(platform::Desk& desk, const SettingsTools& tools);

  private:
    void arrange();
    void writeHints();
    void wire();
    void show();
    void showCompany();
    void showLogo();
    bool isFolder(screen::TextBox& box, const char* words);
    /// The company of the folder that was entered: what other users have entered there is shown.
    void takeCompanyFolder();
    void chooseLogo();
    void chooseFolder(screen::TextBox& box);
    void save();
    bool isValid();
    paper::Company enteredCompany() const;
    settings::UserSettings enteredUserSettings() const;
    void tell(const std::string& text, screen::Icon icon);

    platform::Desk& desk_;
    const SettingsTools& tools_;
    std::filesystem::path companyFile_;
    paper::Company savedCompany_;
    settings::UserSettings savedUser_;
    std::string logo_;
    screen::Frame fraEmpresa_{*this, "fraEmpresa"};
    screen::TextBox txtNombre_{*this, "txtNombre"};
    screen::TextBox txtNif_{*this, "txtNif"};
    screen::TextBox txtDireccion_{*this, "txtDireccion"};
    screen::TextBox txtTelefono_{*this, "txtTelefono"};
    screen::TextBox txtCorreo_{*this, "txtCorreo"};
    screen::Label lblLogotipo_{*this, "lblLogotipo"};
    screen::Button cmdElegirLogotipo_{*this, "cmdElegirLogotipo"};
    screen::Button cmdQuitarLogotipo_{*this, "cmdQuitarLogotipo"};
    screen::Frame fraOferta_{*this, "fraOferta"};
    screen::TextBox txtValidez_{*this, "txtValidez"};
    screen::TextBox txtCondiciones_{*this, "txtCondiciones"};
    screen::Frame fraUsuario_{*this, "fraUsuario"};
    screen::TextBox txtCarpeta_{*this, "txtCarpeta"};
    screen::Button cmdElegirCarpeta_{*this, "cmdElegirCarpeta"};
    screen::TextBox txtCarpetaEmpresa_{*this, "txtCarpetaEmpresa"};
    screen::Button cmdElegirCarpetaEmpresa_{*this, "cmdElegirCarpetaEmpresa"};
    screen::ComboBox cboLetra_{*this, "cboLetra"};
    screen::Button cmdGuardar_{*this, "cmdGuardar"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::desktop
