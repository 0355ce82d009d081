#include "velmora/apps/desktop/first_start_form.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::desktop {

namespace {

constexpr int widthOfText = 64;

/// A path in full, because the next start may be in another folder; a connection string, which is a list of names and
/// values, as it is.
std::string withFullPath(const std::string& text) {
    if (text.find('=') != std::string::npos) {
        return text;
    }
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(system::filePath(text), failure);
    return failure ? text : system::fileText(path);
}

}  // namespace

std::string reasonOfFirstStart(const ChosenDatabase& missing) {
    return missing.file == defaultDatabase() ? "Bienvenido. Todavía no hay ninguna base de datos."
                                             : "No se encuentra la base de datos:\n" + missing.file;
}

FirstStartForm::FirstStartForm(const std::string& reason, std::string newFile, system::Services& services)
    : Form("frmPrimerInicio"), newFile_(std::move(newFile)), services_(services) {
    setCaption("VELMORA: elija un taller");
    lblMotivo_.setCaption(reason);
    arrange();
    wire();
}

void FirstStartForm::arrange() {
    namespace lay = screen::layout;
    lblNueva_.setCaption("Un taller nuevo se guarda en " + newFile_);
    cmdDemostracion_.setCaption("Taller de &demostración");
    lblDemostracion_.setCaption("Con clientes, precios y propuestas inventados, para probar el programa.");
    cmdVacio_.setCaption("Taller &vacío");
    lblVacio_.setCaption("Para trabajar: sin clientes ni precios; solo las constantes de cálculo de medidas.");
    cmdAbrir_.setCaption("&Abrir base existente…");
    lblAbrir_.setCaption("Un fichero de otro equipo, de una copia de seguridad o de una carpeta compartida.");
    txtServidor_.setToolTip("Cadena de conexión de un servidor SQL Server, o el fichero que la contiene");
    txtServidor_.setHint(txtServidor_.toolTip());
    cmdServidor_.setCaption("&Conectar");
    cmdSalir_.setCaption("&Salir (ESC)");
    const auto large = [](screen::Button& button) { return lay::plain(button).as(screen::Role::total); };
    setLayout(lay::column(lay::plain(lblMotivo_, widthOfText), lay::plain(lblNueva_, widthOfText),
                          large(cmdDemostracion_), lay::plain(lblDemostracion_, widthOfText), large(cmdVacio_),
                          lay::plain(lblVacio_, widthOfText), large(cmdAbrir_), lay::plain(lblAbrir_, widthOfText),
                          lay::row(lay::field("O en un servidor", txtServidor_).stretched(), lay::plain(cmdServidor_)),
                          lay::row(lay::space(), lay::plain(cmdSalir_))));
    setTabOrder({&cmdDemostracion_, &cmdVacio_, &cmdAbrir_, &txtServidor_, &cmdServidor_, &cmdSalir_});
}

void FirstStartForm::wire() {
    cmdDemostracion_.onClick = [this] { choose({.database = {.file = newFile_}, .make = NewRows::demonstration}); };
    cmdVacio_.onClick = [this] { choose({.database = {.file = newFile_}, .make = NewRows::empty}); };
    cmdAbrir_.onClick = [this] { chooseFile(); };
    cmdServidor_.onClick = [this] { chooseServer(); };
    cmdSalir_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        } else if (event.key == screen::Key::enter && activeControl() == &txtServidor_) {
            event.key = screen::Key::none;
            chooseServer();
        }
    };
}

void FirstStartForm::choose(FirstStart answer) {
    answer_ = std::move(answer);
    unload();
}

void FirstStartForm::chooseFile() {
    const auto file = services_.openFileDialog(
        {.title = "Abrir base existente", .filter = "Bases de datos (*.db)|*.db|Todos (*.*)|*.*"});
    if (file) {
        choose({.database = {.file = *file}});
    }
}

void FirstStartForm::chooseServer() {
    const std::string text = runtime::Trim(txtServidor_.text());
    if (text.empty()) {
        txtServidor_.setFocus();
    } else {
        choose({.database = {.server = withFullPath(text)}});
    }
}

}  // namespace velmora::desktop
