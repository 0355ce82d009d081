#pragma once
// The start window of the desktop program: a menu, the last proposals with a search box, and what can be done with
// them.

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/database_place.h"
#include "velmora/finding/proposal_finder.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/key_words.h"
#include "velmora/platform/session/session.h"
#include "velmora/shell/vmora.h"

namespace velmora::proposal {
class frmBercialPiñones;
}

namespace velmora::desktop {

class StartForm : public screen::Form, public screen::TellsKeys {
  public:
    /// All must outlive the form; the session is that of the public class. Without copies, as on a server, their button
    /// is not shown. Errors: those of the database when it is asked for the last proposals.
    StartForm(platform::Desk& desk, shell::VMORA& vmora, session::Session& session, backup::Copies* copies,
              DatabasePlace place = {});

    std::vector<screen::KeyWords> functionKeys() const override;

    // --- For the entries of the menu -------------------------------------------------------------------------

    platform::Desk& desk() { return desk_; }
    shell::VMORA& vmora() { return vmora_; }
    session::Session& session() { return session_; }
    const DatabasePlace& place() const { return place_; }
    bool hasCopies() const { return copies_ != nullptr; }
    void showCopies();
    /// Shows a form that is constructed from session and desk.
    template <typename SomeForm>
    void open() {
        SomeForm form(session_, desk_);
        desk_.screen.showModal(form);
    }
    /// Leaves, so that the user can choose another database.
    void leaveForAnother() {
        wantsAnother_ = true;
        unload();
    }
    /// Asks the database again; the current proposal stays the current one.
    void refresh();

    // --- For keys that only a window knows -------------------------------------------------------------------

    screen::TextBox& searchBox() { return txtBuscar_; }
    screen::DataGrid& list() { return dbgPropuestas_; }

    /// The copy that the user wants put back; the form has been unloaded for it.
    const std::optional<backup::Copy>& wanted() const { return wanted_; }
    /// The user wants to choose another database; the form has been unloaded for it.
    bool wantsAnother() const { return wantsAnother_; }

  private:
    void arrange();
    void setCaptions();
    void wire();
    void handleKey(screen::KeyDown& event);
    void leave();
    void search(finding::Reach reach);
    void goToProposal(std::int32_t number);
    std::optional<std::int32_t> current() const;
    void withCurrent(void (StartForm::*operation)(std::int32_t));
    /// Tells the user when it is gone.
    bool isStored(std::int32_t number);
    void openProposal(std::int32_t number);
    void newProposal();
    /// Afterwards the proposal that the user has worked on there is to be the current one of the list.
    void showMainForm(proposal::frmBercialPiñones& form);
    std::int32_t highestNumber() const;
    void goToWorkedOn();
    void print(std::int32_t number);
    void duplicate(std::int32_t number);
    void showStateOfCopies();
    /// Afterwards the list is up to date and the search box has the focus.
    std::function<void()> refreshing(std::function<void()> operation);

    platform::Desk& desk_;
    shell::VMORA& vmora_;
    session::Session& session_;
    backup::Copies* copies_;
    DatabasePlace place_;
    std::optional<backup::Copy> wanted_;
    bool wantsAnother_ = false;
    std::optional<std::int32_t> workedOn_;
    finding::Reach reach_ = finding::Reach::recent;
    screen::Toolbar barMenu_{*this, "barMenu"};
    screen::TextBox txtBuscar_{*this, "txtBuscar"};
    screen::Button cmdTodas_{*this, "cmdTodas"};
    screen::DataGrid dbgPropuestas_{*this, "dbgPropuestas"};
    screen::Label lblResultado_{*this, "lblResultado"};
    screen::Button cmdNueva_{*this, "cmdNueva"};
    screen::Button cmdAbrir_{*this, "cmdAbrir"};
    screen::Button cmdImprimir_{*this, "cmdImprimir"};
    screen::Button cmdDuplicar_{*this, "cmdDuplicar"};
    screen::Button cmdSeguimiento_{*this, "cmdSeguimiento"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
    screen::Label lblCopias_{*this, "lblCopias"};
    screen::Button cmdCopias_{*this, "cmdCopias"};
};

}  // namespace velmora::desktop
