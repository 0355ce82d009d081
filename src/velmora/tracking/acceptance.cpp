#include "velmora/tracking/acceptance.h"

#include <array>
#include <chrono>
#include <thread>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/tracking/credit_gate.h"
#include "velmora/tracking/order_description.h"
#include "velmora/tracking/order_materials.h"
#include "velmora/tracking/order_row.h"
#include "velmora/tracking/order_sprocket.h"
#include "velmora/tracking/routing.h"

namespace velmora::tracking {

namespace {

/// How long an acceptance gives way to another client's that has its order and not yet its mark on the proposal: three
/// seconds in all, in steps that grow, so that who comes back soon is not kept waiting.
constexpr std::array pauses{std::chrono::milliseconds(25),  std::chrono::milliseconds(50),
                            std::chrono::milliseconds(100), std::chrono::milliseconds(200),
                            std::chrono::milliseconds(400), std::chrono::milliseconds(800),
                            std::chrono::milliseconds(1600)};

/// An order that is being made right now is among so many latest numbers.
constexpr std::int64_t latestNumbers = 100;

// Chosen C-146: the current row in a set of its own: the list's rows are read again as it is painted, and by then the
// acceptance has changed what it selects. Error 3021 without a current row.
sql::Recordset copyOfCurrentRow(const sql::Recordset& rows) {
    sql::Row values;
    for (std::size_t column = 0; column < rows.columns().size(); ++column) {
        values.push_back(rows[column]);
    }
    return sql::Recordset(sql::rowsInMemory(rows.columns(), {std::move(values)}));
}

// Kept K-153: the number comes from the table, one above its highest, and from no counter: a highest order that is
// deleted gives its number to the next one.
std::int32_t nextNumber(sql::Connection& connection) {
    const sql::Recordset highest = connection.execute("Select max(orden_NUM) FROM ORDEN");
    return highest[0].isNull() ? 1 : runtime::CLng(highest[0].toDouble() + 1);
}

std::string textOf(std::int64_t number) {
    return runtime::CStr(number);
}

}  // namespace

void Acceptance::msAceptarPresupuesto() {
    const sql::Recordset& list = *fields_.rsDpi;
    if (!list.hasRows()) {
        return;
    }
    const sql::Recordset proposal = copyOfCurrentRow(list);
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
    // Differs D-140: of two clients at the same proposal one gets an order and the other is told. Between a client's
    // commit and its mark the proposal still looks pending; who comes upon such an order gives way for a moment. One
    // that stays unmarked was left by a failure, and another order may be made.
    for (const auto pause : pauses) {
        if (standing.state != Standing::beingAccepted) {
            break;
        }
        standing.state = Standing::unknown;
        if (trapped([&] { connection().rollbackTrans(); })) {
            const screen::Hourglass hourglass(desk_.screen);
            std::this_thread::sleep_for(pause);
            standing = begin(proposal, order);
        }
    }
    if (standing.state == Standing::accepted) {
        tellAcceptedElsewhere(standing);
    }
    if (standing.state == Standing::unknown || standing.state == Standing::accepted) {
        return false;
    }
    // Kept K-154: the transaction covers the number and the order's row and nothing else: the questions that follow
    // would hold every other client, and an order that lacks something is completed by hand.
    return trapped([&] {
        insertOrder(session_, fields_, proposal, order, desk_.clock.now());
        connection().commitTrans();
    });
}

/// Begins the transaction, takes the next number and looks at the proposal again.
Acceptance::Standing Acceptance::begin(const sql::Recordset& proposal, WorkOrder& order) {
    // Kept K-155: what fails here is not trapped, and leaves the transaction open.
    connection().beginTrans();
    order.number = nextNumber(connection());
    Standing standing;
    trapped([&] {
        const sql::Recordset now = connection().execute(
            "Select DPI_FAcepta,DPI_Orden,(Select max(orden_NUM) FROM ORDEN where orden_NUM >= " +
            textOf(order.number - latestNumbers) +
            " and ORDEN_IdDPI = dpi_id) as Otra FROM DPI where dpi_id = " + joined(proposal["dpi_id"]));
        if (!now["DPI_FAcepta"].isNull()) {
            standing = {.state = Standing::accepted, .orderNumber = joined(now["DPI_Orden"])};
        } else {
            standing.state = now["Otra"].isNull() ? Standing::pending : Standing::beingAccepted;
        }
    });
    return standing;
}

void Acceptance::tellAcceptedElsewhere(const Standing& standing) {
    if (trapped([&] { connection().rollbackTrans(); })) {
        // Chosen C-145: the words without an icon, as the words of success.
        desk_.screen.show({.text = "El presupuesto ya fue aceptado, orden de trabajo nº " + standing.orderNumber});
        reload_();
    }
}

/// All that follows the commit. False when it failed; the user has been told.
bool Acceptance::completeOrder(const sql::Recordset& proposal, WorkOrder& order) {
    try {
        markProposal(session_, fields_, proposal, order);
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

/// Runs a step before the commit; what fails in it undoes the transaction and is told. True when it went well.
bool Acceptance::trapped(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const runtime::RuntimeError& error) {
        // Differs D-141: whatever its number: before the commit no error means that all is well.
        session_.Campos().clear();
        undo();
        tell(error);
        return false;
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
