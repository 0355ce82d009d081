#include "velmora/apps/desktop/start_form.h"

#include "velmora/apps/desktop/backup_form.h"
#include "velmora/apps/desktop/start_menu.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/version.h"

namespace velmora::desktop {

namespace {

constexpr char32_t backspace = 8;

bool isDigit(char32_t character) {
    return character >= U'0' && character <= U'9';
}

}  // namespace

StartForm::StartForm(platform::Desk& desk, shell::VMORA& vmora, session::Session& session, backup::Copies* copies)
    : Form("frmInicio"), desk_(desk), vmora_(vmora), session_(session), copies_(copies) {
    setCaption("VELMORA " + platform::version());
    arrange();
    wire();
}

void StartForm::arrange() {
    namespace lay = screen::layout;
    cmdPropuestas_.setCaption("&Propuestas");
    cmdSeguimiento_.setCaption("&Seguimiento");
    cmdParametros_.setCaption("Parámetros de &materiales");
    cmdVerPropuesta_.setCaption("&Ver propuesta");
    cmdSalir_.setCaption("Sa&lir (ESC)");
    txtNumero_.setToolTip("Número de la propuesta que se quiere consultar");
    const auto large = [](screen::Button& button) { return lay::plain(button).as(screen::Role::total); };
    barMenu_.setAccessibleName("Menú");
    barMenu_.setItems(menuItems(*this));
    setLayout(lay::column(lay::plain(barMenu_), large(cmdPropuestas_), large(cmdSeguimiento_), large(cmdParametros_),
                          lay::row(lay::field("Propuesta nº", txtNumero_, 9).number(), lay::plain(cmdVerPropuesta_),
                                   lay::space(), lay::plain(cmdSalir_)),
                          lay::row(lay::plain(lblCopias_), lay::space(), lay::plain(cmdCopias_))));
    cmdCopias_.setCaption("&Copias de seguridad…");
    cmdCopias_.setVisible(copies_ != nullptr);
    lblCopias_.setVisible(copies_ != nullptr);
    showStateOfCopies();
    setTabOrder(
        {&cmdPropuestas_, &cmdSeguimiento_, &cmdParametros_, &txtNumero_, &cmdVerPropuesta_, &cmdSalir_, &cmdCopias_});
}

void StartForm::wire() {
    const auto opens = [this](void (shell::VMORA::*operation)()) {
        return [this, operation] {
            (vmora_.*operation)();
            showStateOfCopies();
        };
    };
    barMenu_.onMenuClick = [this](const std::string& key) {
        performEntry(*this, key);
        showStateOfCopies();
    };
    cmdPropuestas_.onClick = opens(&shell::VMORA::jShow);
    cmdSeguimiento_.onClick = opens(&shell::VMORA::jShowSeguimiento);
    cmdParametros_.onClick = opens(&shell::VMORA::jShowParametros);
    cmdVerPropuesta_.onClick = [this] { showProposal(); };
    cmdSalir_.onClick = [this] { unload(); };
    cmdCopias_.onClick = [this] { showCopies(); };
    txtNumero_.onKeyPress = [](screen::KeyPress& key) {
        if (!isDigit(key.character) && key.character != backspace) {
            key.character = 0;
        }
    };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        } else if (event.key == screen::Key::enter && activeControl() == &txtNumero_) {
            event.key = screen::Key::none;
            showProposal();
        }
    };
}

void StartForm::showProposal() {
    if (!runtime::IsNumeric(txtNumero_.text())) {
        desk_.screen.show({.text = "Falta el número de la propuesta.", .icon = screen::Icon::exclamation});
        txtNumero_.setFocus();
        return;
    }
    std::int32_t nIdDpi = runtime::CLng(txtNumero_.text());
    vmora_.jShowPropuesta(nIdDpi);
}

void StartForm::showStateOfCopies() {
    if (copies_ != nullptr) {
        lblCopias_.setCaption(shownState(*copies_));
        lblCopias_.setForeColor(copies_->isOverdue() ? screen::colors::red : screen::colors::black);
    }
}

void StartForm::showCopies() {
    BackupForm form(desk_, *copies_);
    desk_.screen.showModal(form);
    showStateOfCopies();
    if (form.wanted()) {
        wanted_ = form.wanted();
        unload();
    }
}

}  // namespace velmora::desktop
