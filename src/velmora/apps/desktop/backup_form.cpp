#include "velmora/apps/desktop/backup_form.h"

#include "velmora/platform/runtime/dates.h"

namespace velmora::desktop {

std::string shownMoment(runtime::Date moment) {
    const auto day = std::chrono::floor<std::chrono::days>(moment.at);
    const std::chrono::hh_mm_ss time(moment.at - day);
    const auto minutes = std::to_string(time.minutes().count());
    return runtime::Format(moment, "dd/mm/yyyy") + " " + std::to_string(time.hours().count()) + ":" +
           std::string(minutes.size() < 2 ? "0" : "") + minutes;
}

std::string shownState(const backup::Copies& copies) {
    const std::vector<backup::Copy> all = copies.all();
    if (all.empty()) {
        return "Todavía no hay ninguna copia de seguridad.";
    }
    const std::string last = "Última copia de seguridad: " + shownMoment(all.front().taken);
    return copies.isOverdue() ? last + ", hace más de una semana." : last;
}

BackupForm::BackupForm(platform::Desk& desk, backup::Copies& copies) : Form("frmCopias"), desk_(desk), copies_(copies) {
    setCaption("Copias de seguridad");
    arrange();
    wire();
    list();
}

void BackupForm::arrange() {
    namespace lay = screen::layout;
    lblCopias_.setCaption("Se hace una copia el primer uso de cada día, y se guardan las últimas " +
                          std::to_string(backup::mostCopies) + ".");
    cmdCopiar_.setCaption("&Hacer una copia ahora");
    cmdRestaurar_.setCaption("&Restaurar la copia elegida…");
    cboCopias_.setHint("Copias de seguridad; las flechas eligen la que se quiere restaurar");
    cmdSalir_.setCaption("&Salir (ESC)");
    setLayout(
        lay::column(lay::plain(lblCopias_), lay::field("Copias", cboCopias_, 24),
                    lay::row(lay::plain(cmdCopiar_), lay::plain(cmdRestaurar_), lay::space(), lay::plain(cmdSalir_))));
    setTabOrder({&cboCopias_, &cmdCopiar_, &cmdRestaurar_, &cmdSalir_});
}

void BackupForm::wire() {
    cmdCopiar_.onClick = [this] { make(); };
    cmdRestaurar_.onClick = [this] { restore(); };
    cmdSalir_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        }
    };
}

void BackupForm::list() {
    listed_ = copies_.all();
    cboCopias_.clear();
    for (const backup::Copy& copy : listed_) {
        cboCopias_.addItem(shownMoment(copy.taken));
    }
    if (!listed_.empty()) {
        cboCopias_.setListIndex(0);
    }
    cmdRestaurar_.setEnabled(!listed_.empty());
}

void BackupForm::make() {
    desk_.screen.setPointer(screen::Pointer::hourglass);
    std::string failure;
    try {
        copies_.make();
    } catch (const backup::Failed& e) {
        failure = e.what();
    }
    desk_.screen.setPointer(screen::Pointer::normal);
    list();
    desk_.screen.show(failure.empty()
                          ? screen::MessageBox{.text = "Copia de seguridad hecha y comprobada.",
                                               .icon = screen::Icon::information,
                                               .title = caption()}
                          : screen::MessageBox{.text = failure, .icon = screen::Icon::critical, .title = caption()});
}

void BackupForm::restore() {
    const int index = cboCopias_.listIndex();
    if (index < 0 || static_cast<std::size_t>(index) >= listed_.size()) {
        return;
    }
    const backup::Copy& copy = listed_[static_cast<std::size_t>(index)];
    const auto answer = desk_.screen.show(
        {.text = "Todo lo grabado después del " + shownMoment(copy.taken) +
                 " dejará de estar. Antes se hará una copia de lo que hay ahora.\n\n¿Desea restaurar esta copia?",
         .icon = screen::Icon::exclamation,
         .buttons = screen::Buttons::yesNo,
         .title = caption(),
         .defaultButton = 2});
    if (answer == screen::Answer::yes) {
        wanted_ = copy;
        unload();
    }
}

}  // namespace velmora::desktop
