#include "velmora/apps/desktop/start_form.h"

#include <utility>

#include "velmora/apps/desktop/backup_form.h"
#include "velmora/apps/desktop/start_menu.h"
#include "velmora/finding/found_rows.h"
#include "velmora/finding/proposal_statements.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/platform/version.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/shell/schema_upgrade.h"

namespace velmora::desktop {

namespace {

using proposal::frmBercialPiñones;
using screen::Key;

constexpr int linesOfList = 14;

}  // namespace

StartForm::StartForm(platform::Desk& desk, shell::VMORA& vmora, session::Session& session, backup::Copies* copies,
                     DatabasePlace place)
    : Form("frmInicio"), desk_(desk), vmora_(vmora), session_(session), copies_(copies), place_(std::move(place)) {
    setCaption("VELMORA " + platform::version());
    setCaptions();
    arrange();
    wire();
    dbgPropuestas_.setColumns(finding::foundColumns());
    search(finding::Reach::recent);
    showStateOfCopies();
}

void StartForm::setCaptions() {
    barMenu_.setAccessibleName("Menú");
    barMenu_.setItems(menuItems(*this));
    txtBuscar_.setToolTip(
        "Número de la propuesta o del cliente, parte de su nombre o de una referencia, o un dentado: 38 x 12,7");
    dbgPropuestas_.setAccessibleName("Propuestas");
    txtBuscar_.setHint(txtBuscar_.toolTip());
    dbgPropuestas_.setHint("Propuestas encontradas; Enter abre la elegida, F8 la imprime, F6 la duplica");
    cmdTodas_.setCaption("Buscar en &todas");
    cmdTodas_.setToolTip("Busca el texto también en las propuestas más antiguas");
    cmdNueva_.setCaption("&Nueva (Ctrl+N)");
    cmdAbrir_.setCaption("A&brir (Enter)");
    cmdAbrir_.setToolTip("Abre la propuesta elegida; las flechas eligen otra");
    cmdImprimir_.setCaption("&Imprimir (F8)");
    cmdDuplicar_.setCaption("Dupli&car (F6)");
    cmdDuplicar_.setToolTip("Hace una propuesta nueva, pendiente, con los datos de la elegida");
    cmdSeguimiento_.setCaption("&Seguimiento (F9)");
    cmdSalir_.setCaption("Sa&lir (ESC)");
    cmdCopias_.setCaption("Co&pias de seguridad…");
}

void StartForm::arrange() {
    namespace lay = screen::layout;
    setLayout(lay::column(
        lay::plain(barMenu_), lay::row(lay::field("Buscar (F2)", txtBuscar_).stretched(), lay::plain(cmdTodas_)),
        lay::plain(dbgPropuestas_).tall(linesOfList).stretched(), lay::plain(lblResultado_),
        lay::row(lay::plain(cmdNueva_), lay::plain(cmdAbrir_), lay::plain(cmdImprimir_), lay::plain(cmdDuplicar_),
                 lay::space(), lay::plain(cmdSeguimiento_), lay::plain(cmdSalir_)),
        lay::row(lay::plain(lblCopias_), lay::space(), lay::plain(cmdCopias_))));
    cmdCopias_.setVisible(copies_ != nullptr);
    lblCopias_.setVisible(copies_ != nullptr);
    setTabOrder({&txtBuscar_, &cmdTodas_, &dbgPropuestas_, &cmdNueva_, &cmdAbrir_, &cmdImprimir_, &cmdDuplicar_,
                 &cmdSeguimiento_, &cmdSalir_, &cmdCopias_});
}

void StartForm::wire() {
    barMenu_.onMenuClick = [this](const std::string& key) { refreshing([&] { performEntry(*this, key); })(); };
    txtBuscar_.onChange = [this] { search(finding::Reach::recent); };
    cmdTodas_.onClick = [this] {
        search(finding::Reach::all);
        txtBuscar_.setFocus();
    };
    cmdNueva_.onClick = refreshing([this] { newProposal(); });
    cmdSeguimiento_.onClick = refreshing([this] { vmora_.jShowSeguimiento(); });
    cmdAbrir_.onClick = refreshing([this] { withCurrent(&StartForm::openProposal); });
    cmdImprimir_.onClick = refreshing([this] { withCurrent(&StartForm::print); });
    cmdDuplicar_.onClick = refreshing([this] { withCurrent(&StartForm::duplicate); });
    dbgPropuestas_.onButtonClick = [this](int) { cmdAbrir_.onClick(); };
    cmdSalir_.onClick = [this] { unload(); };
    cmdCopias_.onClick = [this] { showCopies(); };
    onKeyDown = [this](screen::KeyDown& event) { handleKey(event); };
}

/// Those that no button names.
std::vector<screen::KeyWords> StartForm::functionKeys() const {
    return {{.key = Key::f5, .words = "Actualizar la lista"}};
}

std::function<void()> StartForm::refreshing(std::function<void()> operation) {
    return [this, operation = std::move(operation)] {
        operation();
        if (!isUnloaded()) {
            refresh();
            goToWorkedOn();
            showStateOfCopies();
            txtBuscar_.setFocus();
        }
    };
}

void StartForm::handleKey(screen::KeyDown& event) {
    const bool atList = activeControl() == &txtBuscar_ || activeControl() == &dbgPropuestas_;
    switch (event.key) {
        case Key::padDecimal:
            event.key = Key::comma;
            return;
        case Key::escape:
            leave();
            break;
        case Key::enter:
            if (!atList) {
                return;
            }
            cmdAbrir_.onClick();
            break;
        case Key::f2:
            txtBuscar_.setFocus();
            txtBuscar_.selectAll();
            break;
        case Key::f5:
            refresh();
            break;
        case Key::f6:
            cmdDuplicar_.onClick();
            break;
        case Key::f8:
            cmdImprimir_.onClick();
            break;
        case Key::f9:
            cmdSeguimiento_.onClick();
            break;
        default:
            return;
    }
    event.key = Key::none;
}

/// The first Esc empties the search box.
void StartForm::leave() {
    if (txtBuscar_.text().empty()) {
        unload();
    } else {
        txtBuscar_.setText("");
        txtBuscar_.setFocus();
    }
}

void StartForm::search(finding::Reach reach) {
    reach_ = reach;
    const finding::Wanted wanted = finding::readWanted(txtBuscar_.text());
    const screen::Hourglass hourglass(desk_.screen);
    const finding::Found found = finding::findProposals(session_.Connection(), wanted, reach);
    dbgPropuestas_.bind(finding::foundRows(found));
    dbgPropuestas_.refresh();
    lblResultado_.setCaption(finding::foundSentence(found, wanted));
    cmdTodas_.setEnabled(!found.reachedAll);
    for (screen::Button* button : {&cmdAbrir_, &cmdImprimir_, &cmdDuplicar_}) {
        button->setEnabled(!found.proposals.empty());
    }
}

void StartForm::refresh() {
    const std::optional<std::int32_t> number = current();
    search(reach_);
    if (number) {
        goToProposal(*number);
    }
}

void StartForm::goToProposal(std::int32_t number) {
    for (std::size_t row = 0; const sql::Row* values = dbgPropuestas_.recordset().peek(row); ++row) {
        if (values->front().toLong() == number) {
            dbgPropuestas_.moveToRow(row);
            return;
        }
    }
}

std::optional<std::int32_t> StartForm::current() const {
    const sql::Recordset& rows = dbgPropuestas_.recordset();
    return rows.isOpen() && rows.position() ? std::optional(rows[0].toLong()) : std::nullopt;
}

void StartForm::withCurrent(void (StartForm::*operation)(std::int32_t)) {
    if (const std::optional<std::int32_t> number = current()) {
        (this->*operation)(*number);
    }
}

bool StartForm::isStored(std::int32_t number) {
    const bool stored = session_.Connection().execute(finding::numberStatement(number)).hasRows();
    if (!stored) {
        desk_.screen.show({.text = "La propuesta " + std::to_string(number) + " ya no existe.",
                           .icon = screen::Icon::exclamation,
                           .title = caption()});
    }
    return stored;
}

void StartForm::openProposal(std::int32_t number) {
    if (!isStored(number)) {
        return;
    }
    shell::FnActualizarBD(session_.Connection(), desk_.screen);
    frmBercialPiñones form(session_, desk_);
    form.setTag("e");
    if (form.msCargarPresupuesto(number, false)) {
        showMainForm(form);
    }
}

void StartForm::newProposal() {
    shell::FnActualizarBD(session_.Connection(), desk_.screen);
    frmBercialPiñones form(session_, desk_);
    form.setTag("e");
    showMainForm(form);
}

/// A new proposal that was stored and left for an empty form is the newest one.
void StartForm::showMainForm(frmBercialPiñones& form) {
    const std::int32_t highest = highestNumber();
    desk_.screen.showModal(form);
    const estimate::FieldMap& f = form.fields();
    const std::int32_t last = f.proposal.isNew() ? highestNumber() : f.proposal.key();
    if (!f.proposal.isNew() || last > highest) {
        workedOn_ = last;
    }
}

std::int32_t StartForm::highestNumber() const {
    const sql::Recordset last = session_.Connection().execute("SELECT MAX(DPI_Id) AS nUltima FROM DPI");
    return last.eof() || last[0].isNull() ? 0 : last[0].toLong();
}

/// A search that does not find it gives way.
void StartForm::goToWorkedOn() {
    const auto number = std::exchange(workedOn_, std::nullopt);
    if (!number || current() == number) {
        return;
    }
    goToProposal(*number);
    if (current() != number && !txtBuscar_.text().empty()) {
        txtBuscar_.setText("");
        goToProposal(*number);
    }
}

void StartForm::print(std::int32_t number) {
    if (!isStored(number)) {
        return;
    }
    const auto printing = desk_.components.create<components::Printing>("VELMORAIMP.VMORAIMP");
    printing->setMyBd(session_);
    printing->jPrintPropuesta(number, false);
}

void StartForm::duplicate(std::int32_t number) {
    if (!isStored(number)) {
        return;
    }
    shell::FnActualizarBD(session_.Connection(), desk_.screen);
    frmBercialPiñones form(session_, desk_);
    form.setTag("e");
    // Only a form that is open for editing can be copied.
    if (!form.msCargarPresupuesto(number, true)) {
        return;
    }
    form.buttonsAndGrid().cmdDuplicar.onClick();
    const std::int32_t copy = form.fields().proposal.key();
    if (copy != number) {
        showMainForm(form);
    }
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
