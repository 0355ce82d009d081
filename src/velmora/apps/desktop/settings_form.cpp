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
    cmdGuardar_.setCaption("&Guardar (F5)");
    cmdSalir_.setCaption("&Salir (ESC)");
    txtDireccion_.setMultiLine(true);
    txtCondiciones_.setMultiLine(true);
    txtValidez_.setToolTip("Días desde la fecha de la propuesta; vacío: no se dice");
    txtCarpeta_.setToolTip("Vacía: la carpeta temporal del programa");
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
        lay::group(fraUsuario_, lay::column(lay::row(lay::field("Carpeta de los papeles", txtCarpeta_),
                                                     lay::plain(cmdElegirCarpeta_)),
                                            lay::row(lay::field("Tamaño de la letra", cboLetra_, 24), lay::space()))),
        lay::row(lay::space(), lay::plain(cmdGuardar_), lay::plain(cmdSalir_))));
    setTabOrder({&txtNombre_, &txtNif_, &txtTelefono_, &txtCorreo_, &txtDireccion_, &cmdElegirLogotipo_,
                 &cmdQuitarLogotipo_, &txtValidez_, &txtCondiciones_, &txtCarpeta_, &cmdElegirCarpeta_, &cboLetra_,
                 &cmdGuardar_, &cmdSalir_});
    for (const int size : letterSizes) {
        cboLetra_.addItem(wordsOfSize(size));
    }
}

void SettingsForm::wire() {
    cmdElegirLogotipo_.onClick = [this] { chooseLogo(); };
    cmdQuitarLogotipo_.onClick = [this] {
        logo_.clear();
        showLogo();
    };
    cmdElegirCarpeta_.onClick = [this] { chooseFolder(); };
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
    for (const CompanyField& field : companyFields) {
        boxOf(*this, field.control).setText(withReturns(savedCompany_.*field.member));
    }
    logo_ = savedCompany_.logo;
    txtValidez_.setText(savedCompany_.validityDays > 0 ? std::to_string(savedCompany_.validityDays) : "");
    txtCarpeta_.setText(savedUser_.papersFolder);
    const auto* size = std::ranges::find(letterSizes, savedUser_.letterSize);
    const auto ordinary = std::ranges::find(letterSizes, settings::ordinaryLetters);
    cboLetra_.setListIndex(static_cast<int>((size != letterSizes.end() ? size : ordinary) - letterSizes.begin()));
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

void SettingsForm::chooseFolder() {
    if (const auto chosen = tools_.chooseFolder()) {
        txtCarpeta_.setText(*chosen);
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
                                   .letterSize = savedUser_.letterSize};
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
    const std::string folder = runtime::Trim(txtCarpeta_.text());
    std::error_code ignored;
    if (!folder.empty() && !fs::is_directory(system::filePath(folder), ignored)) {
        tell("La carpeta de los papeles no existe:\n" + folder, screen::Icon::exclamation);
        txtCarpeta_.setFocus();
        return false;
    }
    return true;
}

/// Each file is written only for a change of its own: a database in a folder without permission keeps nobody from
/// changing the size of the letters.
void SettingsForm::save() {
    if (!isValid()) {
        return;
    }
    const paper::Company company = enteredCompany();
    const settings::UserSettings user = enteredUserSettings();
    try {
        if (company != savedCompany_) {
            settings::writeCompany(tools_.companyFile, company);
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
