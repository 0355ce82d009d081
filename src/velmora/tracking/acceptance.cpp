#include "velmora/tracking/acceptance.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/platform/session/deed.h"
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

/// How long an acceptance waits while another client has committed an order but not yet marked the proposal.
constexpr milliseconds patience(3000);
/// A client marks the proposal right after committing its order, so the first checks follow quickly.
constexpr milliseconds firstPause(25);
/// Longest pause between two checks; the window repaints between pauses.
constexpr milliseconds longestPause(100);

/// How many of the latest order numbers are searched for an order that another client is making.
constexpr std::int64_t latestNumbers = 100;

// Kept K-153: the number is one above the highest in the table, not from a counter: when the highest order is deleted,
// its number is used again. Required as it is; it determines stored order numbers.
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

/// True when a column of the row in the database differs from the displayed row. The displayed row may lack columns
/// added since.
bool differs(const sql::Recordset& now, const sql::Recordset& shown) {
    std::set<std::string> shownNames;  // in capitals
    for (const sql::Column& column : shown.columns()) {
        shownNames.insert(runtime::UCase(column.name));
    }
    for (std::size_t i = 0; i < now.columns().size(); ++i) {
        const sql::Column& column = now.columns()[i];
        if (shownNames.contains(runtime::UCase(column.name)) && now[i] != shown[column.name]) {
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
    // Differs D-145: the row that the panel shows is accepted, by its key and with its values. A row that the panel
    // cannot show is not accepted with the figures of the row before it.
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

/// From the number to the commit. False when there is no order; the user has been informed.
bool Acceptance::openOrder(const sql::Recordset& proposal, WorkOrder& order) {
    Standing standing = begin(proposal, order);
    if (mayBeMarkedYet(standing, proposal)) {
        standing = waitForMark(proposal, order, standing);
    }
    if (standing.state != Standing::pending && standing.state != Standing::ordered) {
        refuse(standing);
        return false;
    }
    // Kept K-154: the transaction covers only the number and the order's row. The questions that follow would block
    // every other client, and an incomplete order can be completed by hand.
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

/// Begins the transaction, takes the next number and reads the proposal's state. The transaction stays open unless that
/// failed.
Acceptance::Standing Acceptance::begin(const sql::Recordset& proposal, WorkOrder& order) {
    // Kept K-155: an error here is not trapped: the user sees the error itself, not the message of a failed acceptance.
    connection().beginTrans();
    try {
        order.number = nextNumber(connection());
    } catch (...) {
        // Differs D-143: the transaction is rolled back before the error is passed on: an open one would block every
        // other client, and this client could not begin another.
        undoQuietly();
        throw;
    }
    Standing standing;
    if (const auto error = undone([&] { standing = look(proposal, order.number); })) {
        standing = {.state = Standing::failed, .error = error};
    }
    return standing;
}

/// Reads the proposal by its key, then its orders.
Acceptance::Standing Acceptance::look(const sql::Recordset& proposal, std::int32_t nextNumber) {
    // Differs D-140: when two clients accept the same proposal, one gets an order and the other is informed. The mark
    // is read before the orders, because a client stores its order first and the mark afterwards.
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

/// True when another client has committed this order and may still be about to mark the proposal.
bool Acceptance::mayBeMarkedYet(const Standing& standing, const sql::Recordset& proposal) const {
    // Chosen C-148: an order whose mark failed on this form is not waited for until the form is closed; a form opened
    // later waits for it like any other client.
    const auto own = unmarkedHere_.find(keyOf(proposal));
    return standing.state == Standing::ordered && (own == unmarkedHere_.end() || own->second != standing.unmarked);
}

/// Back-off while another client has committed an order but not yet marked the proposal. An order that remains unmarked
/// is the leftover of a failure, and a new one may be made. The transaction is open before and afterwards unless a read
/// failed.
Acceptance::Standing Acceptance::waitForMark(const sql::Recordset& proposal, WorkOrder& order, Standing standing) {
    // Differs D-146: the window repaints meanwhile but takes no input.
    const screen::Disabled disabled(fields_.form);
    const screen::Waiting waiting(desk_.screen, screen::waitingForOtherUser);
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
            // A new order: another client has made it while this one waited for a leftover.
            awaited = standing.unmarked;
            waited = milliseconds(0);
            pause = firstPause;
        }
    }
    return standing;
}

/// Ends the transaction without an order and shows the reason.
void Acceptance::refuse(const Standing& standing) {
    auto error = standing.error;
    if (standing.state != Standing::failed) {
        error = undone([&] { connection().rollbackTrans(); });
    }
    if (error) {
        tell(*error);
        return;
    }
    // Chosen C-147: the list is refreshed to show the current state, unless that would overwrite what the user has
    // typed in the panel.
    const bool keepsPanel = isEdited(fields_);
    // Differs D-147: a proposal that another user has deleted or changed since it was shown gets no order, and the user
    // is told which of the two it was.
    const std::map<Standing::State, std::string> words{
        {Standing::gone, "El presupuesto ya no existe, otro usuario lo ha eliminado"},
        {Standing::accepted, "El presupuesto ya fue aceptado, orden de trabajo nº " + standing.orderNumber},
        {Standing::changed,
         std::string("El presupuesto ha sido modificado por otro usuario, revíselo antes de aceptarlo") +
             (keepsPanel ? "\r\nEjecute el filtro para verlo como está ahora, hasta entonces se conserva lo escrito"
                         : "")},
    };
    // Chosen C-145: the message has no icon, like the message of success.
    desk_.screen.show({.text = words.at(standing.state)});
    if (!keepsPanel) {
        reload_();
    }
}

/// Everything after the commit. False when it failed; the user has been informed.
bool Acceptance::completeOrder(const sql::Recordset& proposal, WorkOrder& order) {
    try {
        markProposal(session_, fields_, proposal, order);
        unmarkedHere_.erase(keyOf(proposal));
        order.id = orderIdOf(connection(), order.number);
        addSprocketData(session_, proposal, order);
        addMaterials(session_, desk_.screen, oUtil_, proposal, order);
        addRoute(session_, proposal, order, fields_.txtPesu(pieces).text());
        // Kept K-156: no transaction is open any more, so this commit fails, and its error number is taken as success.
        connection().commitTrans();
    } catch (const runtime::RuntimeError& error) {
        session_.Campos().clear();
        if (error.number() != sql::provider::noTransaction) {
            // Kept K-157: no transaction is open any more, so this rollback fails, and its error is raised instead of
            // showing the message.
            connection().rollbackTrans();
            tell(error);
            return false;
        }
    }
    return true;
}

/// Runs a step between begin and commit. Any failure rolls the transaction back; a run-time error is returned, any
/// other exception propagates.
std::optional<runtime::RuntimeError> Acceptance::undone(const std::function<void()>& step) {
    try {
        step();
        return std::nullopt;
    } catch (const runtime::RuntimeError& error) {
        // Differs D-141: whatever its number, an error before the commit never counts as success.
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

/// Differs D-142: when the rollback fails because the connection is lost, or because the engine has already rolled
/// back, the message of the first failure is still shown.
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

/// For an error that propagates: nothing may replace it.
void Acceptance::undoQuietly() {
    try {
        connection().rollbackTrans();
    } catch (const std::exception&) {
        // The connection is lost or refuses: nothing more can be done about the transaction.
    }
}

void Acceptance::tell(const runtime::RuntimeError& error) {
    desk_.screen.show({.text = "Error marcando presupuesto:\r\n" + error.description()});
}

void Acceptance::succeed(const sql::Recordset& proposal, const WorkOrder& order) {
    desk_.screen.show({.text = "Presupuesto Aceptado, Orden de trabajo nº " + textOf(order.number) + " generada "});
    fields_.form.status().tellDeed(session::deedNow(
        "Propuesta " + joined(proposal["dpi_id"]) + " aceptada, orden " + textOf(order.number), desk_.clock));
    fields_.txtCriterio(numberFrom).setText(joined(proposal["dpi_id"]));
    fields_.cboFiltroHistorico.setListIndex(allStates);
    reload_();
}

}  // namespace velmora::tracking
