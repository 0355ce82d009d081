#include "velmora/apps/desktop/settings_form.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "velmora/apps/settings/company_settings.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::desktop {

namespace {

namespace fs = std::filesystem;

constexpr char32_t backspaceKey = 8;
constexpr std::uintmax_t largestLogo = std::uintmax_t{2} * 1024 * 1024;  ///< bytes
constexpr int longestValidity = 999;                                     ///< days
constexpr std::array letterSizes{80, 90, 100, 110, 125, 150, 175, 200};  ///< percent

/// Each text field with the member of the company that it enters.
struct CompanyField {
    std::string paper::Company::*member;
    const char* control;
};
constexpr std::array companyFields{
    CompanyField{&paper::Company::name, "txtNombre"},       CompanyField{&paper::Company::taxNumber, "txtNif"},
    CompanyField{&paper::Company::address, "txtDireccion"}, CompanyField{&paper::Company::telephone, "txtTelefono"},
    CompanyField{&paper::Company::email, "txtCorreo"},      CompanyField{&paper::Company::terms, "txtCondiciones"},
};

screen::TextBox& boxOf(const screen::Form& form, const char* name) {
    return dynamic_cast<screen::TextBox&>(*form.find(name));
}

std::string wordsOfSize(int percent) {
    const std::string size = std::to_string(percent) + " %";
    return percent == settings::ordinaryLetters ? size + ", la del escritorio" : size;
}

/// Lines end as the forms have it.
std::string withReturns(const std::string& text) {
    return runtime::Replace(text, "\n", "\r\n");
}

std::string withoutReturns(const std::string& text) {
    return runtime::Replace(text, "\r\n", "\n");
}

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

SettingsForm::SettingsForm(platform::Desk& desk, const SettingsTools& tools)
    : Form("frmAjustes"),
      desk_(desk),
      tools_(tools),
      companyFile_(tools.companyFile),
      savedCompany_(settings::readCompany(tools.companyFile)),
      savedUser_(settings::readUserSettings(tools.userFile)) {
    setCaption("Ajustes");
    arrange();
    wire();
    show();
}

void SettingsForm::arrange() {
    namespace lay = screen::layout;
    fraEmpresa_.setCaption("Empresa, para el papel del cliente");
    fraOferta_.setCaption("Ofertas");
    fraUsuario_.setCaption("Este usuario en este equipo");
    cmdElegirLogotipo_.setCaption("Elegir &logotipo…");
    cmdQuitarLogotipo_.setCaption("&Quitar logotipo");
    cmdElegirCarpeta_.setCaption("Elegir &carpeta…");
    cmdElegirCarpetaEmpresa_.setCaption("Elegir carpeta co&mpartida…");
    cmdGuardar_.setCaption("&Guardar (F5)");
    cmdSalir_.setCaption("&Salir (ESC)");
    txtDireccion_.setMultiLine(true);
    txtCondiciones_.setMultiLine(true);
    writeHints();
    screen::Layout ofUser =
        lay::column(lay::row(lay::field("Carpeta de los papeles", txtCarpeta_), lay::plain(cmdElegirCarpeta_)),
                    lay::row(lay::field("Tamaño de la letra", cboLetra_, 24), lay::space()));
    if (tools_.companyFileIn) {
        ofUser.children.push_back(lay::row(lay::field("Datos de la empresa, compartidos en", txtCarpetaEmpresa_),
                                           lay::plain(cmdElegirCarpetaEmpresa_)));
    }
    txtCarpetaEmpresa_.setVisible(static_cast<bool>(tools_.companyFileIn));
    cmdElegirCarpetaEmpresa_.setVisible(static_cast<bool>(tools_.companyFileIn));
    setLayout(lay::column(
        lay::group(
            fraEmpresa_,
            lay::column(lay::grid(2, lay::field("Nombre", txtNombre_, 40), lay::field("NIF", txtNif_, 14),
                                  lay::field("Teléfono", txtTelefono_, 40), lay::field("Correo", txtCorreo_, 30)),
                        lay::field("Dirección", txtDireccion_).tall(3).above(),
                        lay::row(lay::plain(lblLogotipo_, 30), lay::space(), lay::plain(cmdElegirLogotipo_),
                                 lay::plain(cmdQuitarLogotipo_)))),
        lay::group(fraOferta_,
                   lay::column(lay::row(lay::field("Validez", txtValidez_, 5).number().units("días"), lay::space()),
                               lay::field("Condiciones", txtCondiciones_).tall(4).above())),
        lay::group(fraUsuario_, std::move(ofUser)),
        lay::row(lay::space(), lay::plain(cmdGuardar_), lay::plain(cmdSalir_))));
    setTabOrder({&txtNombre_, &txtNif_, &txtTelefono_, &txtCorreo_, &txtDireccion_, &cmdElegirLogotipo_,
                 &cmdQuitarLogotipo_, &txtValidez_, &txtCondiciones_, &txtCarpeta_, &cmdElegirCarpeta_, &cboLetra_,
                 &txtCarpetaEmpresa_, &cmdElegirCarpetaEmpresa_, &cmdGuardar_, &cmdSalir_});
    for (const int size : letterSizes) {
        cboLetra_.addItem(wordsOfSize(size));
    }
}

void SettingsForm::writeHints() {
    const auto set = [](screen::Control& control, std::string_view text) {
        control.setHint(text);
        control.setToolTip(text);
    };
    set(txtNombre_, "Nombre de la empresa, a la cabeza del papel del cliente");
    set(txtNif_, "Número de identificación fiscal");
    set(txtTelefono_, "Teléfono de la empresa");
    set(txtCorreo_, "Correo de la empresa");
    set(txtDireccion_, "Dirección de la empresa, en las líneas en que se imprime");
    set(txtValidez_, "Días desde la fecha de la propuesta; vacío: no se dice");
    set(txtCondiciones_, "Condiciones al pie de la oferta");
    set(txtCarpeta_, "Carpeta en la que se guardan los papeles; vacía: la carpeta temporal del programa");
    set(txtCarpetaEmpresa_,
        "Carpeta con los datos de la empresa para todos los usuarios del servidor; vacía: solo los de este usuario");
    set(cboLetra_, "Tamaño de la letra de las ventanas en este equipo");
}

void SettingsForm::wire() {
    cmdElegirLogotipo_.onClick = [this] { chooseLogo(); };
    cmdQuitarLogotipo_.onClick = [this] {
        logo_.clear();
        showLogo();
    };
    cmdElegirCarpeta_.onClick = [this] { chooseFolder(txtCarpeta_); };
    cmdElegirCarpetaEmpresa_.onClick = [this] {
        chooseFolder(txtCarpetaEmpresa_);
        takeCompanyFolder();
    };
    txtCarpetaEmpresa_.onLostFocus = [this] { takeCompanyFolder(); };
    cmdGuardar_.onClick = [this] { save(); };
    cmdSalir_.onClick = [this] { unload(); };
    txtValidez_.onKeyPress = [](screen::KeyPress& key) {
        if ((key.character < U'0' || key.character > U'9') && key.character != backspaceKey) {
            key.character = 0;
        }
    };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        } else if (event.key == screen::Key::f5) {
            event.key = screen::Key::none;
            save();
        }
    };
}

void SettingsForm::show() {
    showCompany();
    txtCarpeta_.setText(savedUser_.papersFolder);
    txtCarpetaEmpresa_.setText(savedUser_.companyFolder);
    const auto* size = std::ranges::find(letterSizes, savedUser_.letterSize);
    const auto ordinary = std::ranges::find(letterSizes, settings::ordinaryLetters);
    cboLetra_.setListIndex(static_cast<int>((size != letterSizes.end() ? size : ordinary) - letterSizes.begin()));
}

void SettingsForm::showCompany() {
    for (const CompanyField& field : companyFields) {
        boxOf(*this, field.control).setText(withReturns(savedCompany_.*field.member));
    }
    logo_ = savedCompany_.logo;
    txtValidez_.setText(savedCompany_.validityDays > 0 ? std::to_string(savedCompany_.validityDays) : "");
    showLogo();
}

void SettingsForm::showLogo() {
    constexpr std::size_t kilobyte = 1024;
    const std::string size = std::to_string((logo_.size() + kilobyte - 1) / kilobyte);
    lblLogotipo_.setCaption(logo_.empty() ? "Sin logotipo" : "Con logotipo, de " + size + " kB");
    cmdQuitarLogotipo_.setEnabled(!logo_.empty());
}

void SettingsForm::chooseLogo() {
    const auto chosen = desk_.services.openFileDialog(
        {.title = "Logotipo", .filter = "Imágenes (*.png;*.svg;*.jpg;*.jpeg)|*.png;*.svg;*.jpg;*.jpeg"});
    if (!chosen) {
        return;
    }
    const fs::path file = system::filePath(*chosen);
    std::error_code failure;
    const std::uintmax_t size = fs::file_size(file, failure);
    if (failure || size > largestLogo) {
        tell(failure ? "No se puede leer el fichero\n" + *chosen : "La imagen ocupa más de 2 MB.",
             screen::Icon::exclamation);
        return;
    }
    std::string bytes = bytesOf(file);
    if (!tools_.isPicture(bytes)) {
        tell("El fichero no es una imagen PNG, SVG o JPEG:\n" + *chosen, screen::Icon::exclamation);
        return;
    }
    logo_ = std::move(bytes);
    showLogo();
}

void SettingsForm::chooseFolder(screen::TextBox& box) {
    if (const auto chosen = tools_.chooseFolder()) {
        box.setText(*chosen);
    }
}

// Chosen C-540: with a server's database the company is the same for all users whose settings name the same folder: no
// table is added to the host's database. What is already in the folder is shown instead of being overwritten.
void SettingsForm::takeCompanyFolder() {
    if (!tools_.companyFileIn) {
        return;
    }
    const fs::path file = tools_.companyFileIn(runtime::Trim(txtCarpetaEmpresa_.text()));
    if (file == companyFile_) {
        return;
    }
    companyFile_ = file;
    savedCompany_ = settings::readCompany(file);
    std::error_code failure;
    if (fs::exists(file, failure)) {
        showCompany();
    }
}

paper::Company SettingsForm::enteredCompany() const {
    paper::Company company;
    for (const CompanyField& field : companyFields) {
        company.*field.member = runtime::Trim(withoutReturns(boxOf(*this, field.control).text()));
    }
    company.logo = logo_;
    company.validityDays = txtValidez_.text().empty() ? 0 : static_cast<int>(runtime::Val(txtValidez_.text()));
    return company;
}

settings::UserSettings SettingsForm::enteredUserSettings() const {
    settings::UserSettings entered{.papersFolder = runtime::Trim(txtCarpeta_.text()),
                                   .letterSize = savedUser_.letterSize,
                                   .companyFolder = runtime::Trim(txtCarpetaEmpresa_.text())};
    if (cboLetra_.listIndex() >= 0) {
        entered.letterSize = letterSizes.at(static_cast<std::size_t>(cboLetra_.listIndex()));
    }
    return entered;
}

bool SettingsForm::isValid() {
    if (!txtValidez_.text().empty() &&
        (!runtime::IsNumeric(txtValidez_.text()) || runtime::Val(txtValidez_.text()) > longestValidity)) {
        tell("La validez es un número de días, hasta " + std::to_string(longestValidity) + ".",
             screen::Icon::exclamation);
        txtValidez_.setFocus();
        return false;
    }
    return isFolder(txtCarpeta_, "La carpeta de los papeles no existe:\n") &&
           (!tools_.companyFileIn ||
            isFolder(txtCarpetaEmpresa_, "La carpeta de los datos de la empresa no existe:\n"));
}

bool SettingsForm::isFolder(screen::TextBox& box, const char* words) {
    const std::string folder = runtime::Trim(box.text());
    std::error_code ignored;
    if (folder.empty() || fs::is_directory(system::filePath(folder), ignored)) {
        return true;
    }
    tell(words + folder, screen::Icon::exclamation);
    box.setFocus();
    return false;
}

/// Each file is written only for a change of its own: a database in a folder without permission keeps nobody from
/// changing the size of the letters.
void SettingsForm::save() {
    if (!isValid()) {
        return;
    }
    takeCompanyFolder();
    const paper::Company company = enteredCompany();
    const settings::UserSettings user = enteredUserSettings();
    try {
        if (company != savedCompany_) {
            settings::writeCompany(companyFile_, company);
            savedCompany_ = company;
        }
        if (user != savedUser_) {
            settings::writeUserSettings(tools_.userFile, user);
            savedUser_ = user;
            tools_.setLetterSize(user.letterSize);
        }
    } catch (const settings::NotSaved& e) {
        tell(e.what(), screen::Icon::critical);
        return;
    }
    unload();
}

void SettingsForm::tell(const std::string& text, screen::Icon icon) {
    desk_.screen.show({.text = text, .icon = icon, .title = caption()});
}

}  // namespace velmora::desktop
