#include "velmora/tracking/acceptance.h"

#include <algorithm>
#include <chrono>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/tracking/credit_gate.h"
#include "velmora/tracking/detail.h"
#include "velmora/tracking/order_description.h"
#include "velmora/tracking/order_materials.h"
#include "velmora/tracking/order_row.h"
#include "velmora/tracking/order_sprocket.h"
#include "velmora/tracking/routing.h"

namespace velmora::tracking {

namespace {

using std::chrono::milliseconds;

/// How long an acceptance waits for the mark of another client's order.
constexpr milliseconds patience(3000);
/// A client marks the proposal right after its order's commit: the first looks follow soon.
constexpr milliseconds firstPause(25);
/// The window paints between two pauses.
constexpr milliseconds longestPause(100);

/// An order that is being made right now is among so many latest numbers.
constexpr std::int64_t latestNumbers = 100;

// Kept K-153: the number comes from the table, one above its highest, and from no counter: a highest order that is
// deleted gives its number to the next one.
std::int32_t nextNumber(sql::Connection& connection) {
    const sql::Recordset highest = connection.execute("Select max(orden_NUM) FROM ORDEN");
    return highest[0].isNull() ? 1 : runtime::CLng(highest[0].toDouble() + 1);
}

std::string textOf(std::int64_t number) {
    return runtime::CStr(number);
}

std::int32_t keyOf(const sql::Recordset& proposal) {
    return proposal["dpi_id"].toLong();
}

/// True when a column of the row in the database has another value than the row that was shown, which may lack columns
/// that were added since.
bool differs(const sql::Recordset& now, const sql::Recordset& shown) {
    const auto isShown = [&](const sql::Column& column) {
        return std::ranges::any_of(shown.columns(), [&](const sql::Column& other) {
            return runtime::UCase(other.name) == runtime::UCase(column.name);
        });
    };
    for (std::size_t i = 0; i < now.columns().size(); ++i) {
        const sql::Column& column = now.columns()[i];
        if (isShown(column) && now[i] != shown[column.name]) {
            return true;
        }
    }
    return false;
}

}  // namespace

void Acceptance::msAceptarPresupuesto() {
    const sql::Recordset& list = *fields_.rsDpi;
    if (!list.hasRows()) {
        return;
    }
    // Differs D-145: what is accepted is the row that the panel shows, by its key and with its values. A row that the
    // panel cannot show is not accepted with the figures of the row before it.
    const sql::Recordset proposal = fields_.shown;
    if (!proposal.isOpen()) {
        if (list["DPI_FAcepta"].isNull()) {
            desk_.screen.show({.text = "El panel no muestra el presupuesto entero, no se puede aceptar"});
        }
        return;
    }
    if (!proposal["DPI_FAcepta"].isNull() || !isWithinCredit() || !isConfirmed()) {
        return;
    }
    WorkOrder order;
    if (openOrder(proposal, order) && completeOrder(proposal, order)) {
        succeed(proposal, order);
    }
}

bool Acceptance::isWithinCredit() {
    const auto& txtPesu = fields_.txtPesu;
    if (!FnRiesgoExcedido(connection(), runtime::CLng(txtPesu(customerCode).text()),
                          runtime::CDbl(txtPesu(totalAmount).text()))) {
        return true;
    }
    desk_.screen.show({.text = "* * * * * * * * * * A T E N C I Ó N * * * * * * * * * *\r\n"
                               "* * * * * * * Cliente con riesgo excedido * * * * * * *\r\n"
                               "* *  No es posible crear ordenes para este cliente * *  ",
                       .icon = screen::Icon::critical,
                       .title = "Gestión de Riesgos"});
    return false;
}

bool Acceptance::isConfirmed() {
    return desk_.screen.show({.text = "Realmente desea marcar como aceptado este presupuesto",
                              .icon = screen::Icon::information,
                              .buttons = screen::Buttons::yesNo}) == screen::Answer::yes;
}

/// From the number to the commit. False when there is no order; the user has been told.
bool Acceptance::openOrder(const sql::Recordset& proposal, WorkOrder& order) {
    Standing standing = begin(proposal, order);
    if (mayBeMarkedYet(standing, proposal)) {
        standing = waitForMark(proposal, order, standing);
    }
    if (standing.state != Standing::pending && standing.state != Standing::ordered) {
        refuse(standing);
        return false;
    }
    // Kept K-154: the transaction covers the number and the order's row and nothing else: the questions that follow
    // would hold every other client, and an order that lacks something is completed by hand.
    const auto error = undone([&] {
        insertOrder(session_, fields_, proposal, order, desk_.clock.now());
        connection().commitTrans();
    });
    if (error) {
        tell(*error);
        return false;
    }
    unmarkedHere_[keyOf(proposal)] = order.number;
    return true;
}

/// Begins the transaction, takes the next number and looks at the proposal. The transaction is open afterwards unless
/// the look failed.
Acceptance::Standing Acceptance::begin(const sql::Recordset& proposal, WorkOrder& order) {
    // Kept K-155: what fails here is not trapped: the user reads the error itself and not the words of an acceptance.
    connection().beginTrans();
    try {
        order.number = nextNumber(connection());
    } catch (...) {
        // Differs D-143: the transaction does not stay open behind the error: it would hold every other client, and
        // this one could begin no other.
        undoQuietly();
        throw;
    }
    Standing standing;
    if (const auto error = undone([&] { standing = look(proposal, order.number); })) {
        standing = {.state = Standing::failed, .error = error};
    }
    return standing;
}

/// Looks at the proposal by its key, then at its orders.
Acceptance::Standing Acceptance::look(const sql::Recordset& proposal, std::int32_t nextNumber) {
    // Differs D-140: of two clients at the same proposal one gets an order and the other is told. The mark is read
    // before the orders: a client stores its order first, and its mark afterwards.
    const std::string key = joined(proposal["dpi_id"]);
    const sql::Recordset now = connection().execute("Select * FROM DPI where dpi_id = " + key);
    if (!now.hasRows()) {
        return {.state = Standing::gone};
    }
    if (!now["DPI_FAcepta"].isNull()) {
        return {.state = Standing::accepted, .orderNumber = joined(now["DPI_Orden"])};
    }
    if (differs(now, proposal)) {
        return {.state = Standing::changed};
    }
    const sql::Recordset orders = connection().execute("Select max(orden_NUM) FROM ORDEN where ORDEN_IdDPI = " + key +
                                                       " and orden_NUM >= " + textOf(nextNumber - latestNumbers));
    if (orders[0].isNull()) {
        return {.state = Standing::pending};
    }
    return {.state = Standing::ordered, .unmarked = orders[0].toLong()};
}

/// True for an order that another client has committed and may be about to mark on the proposal.
bool Acceptance::mayBeMarkedYet(const Standing& standing, const sql::Recordset& proposal) const {
    // Chosen C-148: an order whose mark failed on this form is known as such until the form is closed; a form opened
    // later waits for it as anybody does.
    const auto own = unmarkedHere_.find(keyOf(proposal));
    return standing.state == Standing::ordered && (own == unmarkedHere_.end() || own->second != standing.unmarked);
}

/// Backs off while another client has committed an order but not yet marked the proposal, looking again and again. An
/// order that stays unmarked was left by a failure, and another one may be made. The transaction is open before and
/// afterwards unless a look failed.
Acceptance::Standing Acceptance::waitForMark(const sql::Recordset& proposal, WorkOrder& order, Standing standing) {
    // Differs D-146: the window paints meanwhile, and takes no input.
    const screen::Busy busy(desk_.screen, fields_.form);
    std::int32_t awaited = standing.unmarked;
    milliseconds waited(0);
    milliseconds pause = firstPause;
    while (mayBeMarkedYet(standing, proposal) && waited < patience) {
        if (const auto error = undone([&] { connection().rollbackTrans(); })) {
            return {.state = Standing::failed, .error = error};
        }
        desk_.clock.pause(pause);
        desk_.screen.processEvents();
        waited += pause;
        pause = std::min(2 * pause, longestPause);
        standing = begin(proposal, order);
        if (standing.unmarked != awaited) {
            // Another order than before: its client has made it while this one waited for a leftover.
            awaited = standing.unmarked;
            waited = milliseconds(0);
            pause = firstPause;
        }
    }
    return standing;
}

/// Ends the transaction without an order and tells why.
void Acceptance::refuse(const Standing& standing) {
    auto error = standing.error;
    if (standing.state != Standing::failed) {
        error = undone([&] { connection().rollbackTrans(); });
    }
    if (error) {
        tell(*error);
        return;
    }
    // Chosen C-147: the list is read anew, so that it shows how things stand, unless that would overwrite what the user
    // has typed in the panel.
    const bool keepsPanel = isEdited(fields_);
    // Differs D-147: a proposal that another user has deleted or changed since it was shown gets no order, and the user
    // is told which it was.
    const std::map<Standing::State, std::string> words{
        {Standing::gone, "El presupuesto ya no existe, otro usuario lo ha eliminado"},
        {Standing::accepted, "El presupuesto ya fue aceptado, orden de trabajo nº " + standing.orderNumber},
        {Standing::changed,
         std::string("El presupuesto ha sido modificado por otro usuario, revíselo antes de aceptarlo") +
             (keepsPanel ? "\r\nEjecute el filtro para verlo como está ahora, hasta entonces se conserva lo escrito"
                         : "")},
    };
    // Chosen C-145: the words without an icon, as the words of success.
    desk_.screen.show({.text = words.at(standing.state)});
    if (!keepsPanel) {
        reload_();
    }
}

/// All that follows the commit. False when it failed; the user has been told.
bool Acceptance::completeOrder(const sql::Recordset& proposal, WorkOrder& order) {
    try {
        markProposal(session_, fields_, proposal, order);
        unmarkedHere_.erase(keyOf(proposal));
        order.id = orderIdOf(connection(), order.number);
        addSprocketData(session_, proposal, order);
        addMaterials(session_, desk_.screen, oUtil_, proposal, order);
        addRoute(session_, proposal, order, fields_.txtPesu(pieces).text());
        // Kept K-156: the transaction has ended long ago: this commit fails with its own number, and by that number all
        // is known to be well.
        connection().commitTrans();
    } catch (const runtime::RuntimeError& error) {
        session_.Campos().clear();
        if (error.number() != sql::provider::noTransaction) {
            // Kept K-157: nothing is open any more: this rollback fails, and its error goes up in place of the words.
            connection().rollbackTrans();
            tell(error);
            return false;
        }
    }
    return true;
}

/// Runs a step between begin and commit. What fails in it undoes the transaction: an error of the language or the
/// database is given back, anything else goes up.
std::optional<runtime::RuntimeError> Acceptance::undone(const std::function<void()>& step) {
    try {
        step();
        return std::nullopt;
    } catch (const runtime::RuntimeError& error) {
        // Differs D-141: whatever its number: before the commit no error means that all is well.
        session_.Campos().clear();
        undo();
        return error;
    } catch (...) {
        // Differs D-144: no kind of failure leaves the transaction open.
        session_.Campos().clear();
        undoQuietly();
        throw;
    }
}

/// Differs D-142: a rollback that fails because the connection is gone, or because the engine has undone everything
/// already, does not stand before the words of the first failure.
void Acceptance::undo() {
    try {
        connection().rollbackTrans();
    } catch (const runtime::RuntimeError& error) {
        std::string reason;
        if (error.number() != sql::provider::noTransaction && session_.ComprobarConexion(connection(), reason)) {
            throw;
        }
    }
}

/// For an error that goes up: nothing comes before it.
void Acceptance::undoQuietly() {
    try {
        connection().rollbackTrans();
    } catch (const std::exception&) {
        // The connection is gone, or refuses: there is nothing more to be done about the transaction.
    }
}

void Acceptance::tell(const runtime::RuntimeError& error) {
    desk_.screen.show({.text = "Error marcando presupuesto:\r\n" + error.description()});
}

void Acceptance::succeed(const sql::Recordset& proposal, const WorkOrder& order) {
    desk_.screen.show({.text = "Presupuesto Aceptado, Orden de trabajo nº " + textOf(order.number) + " generada "});
    fields_.txtCriterio(numberFrom).setText(joined(proposal["dpi_id"]));
    fields_.cboFiltroHistorico.setListIndex(allStates);
    reload_();
}

}  // namespace velmora::tracking
