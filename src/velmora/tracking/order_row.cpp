#include "velmora/tracking/order_row.h"

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/tracking/credit_gate.h"
#include "velmora/tracking/order_description.h"

namespace velmora::tracking {

using session::Tipo;

namespace {

constexpr int series = 0;
constexpr int remarksLength = 150;
constexpr int descriptionLength = 100;
constexpr int articleLength = 100;

constexpr const char* dayMask = "dd/mm/yyyy";

void requireConnection(session::Session& session) {
    std::string reason;
    if (!session.ComprobarConexion(session.Connection(), reason)) {
        raise(connectionLost, "La conexión con la Base de Datos se perdió");
    }
}

void require(const session::RowWrite& write) {
    if (!write.stored) {
        raise(writeRefused, write.error);
    }
}

/// The remarks of the proposal in one line; without remarks, the origin of the order.
std::string remarks(const sql::Recordset& proposal, runtime::Date now) {
    // Kept K-143: line breaks are removed without inserting a blank, so words run together; remarks that consist of
    // line breaks count as empty. Required as it is; it determines stored texts.
    std::string sObs = runtime::Replace(joined(proposal["DPI_Obser"]), "\r\n", "");
    if (!sObs.empty()) {
        return sObs;
    }
    // Chosen C-142: date and time in the default form: no leading zero in the hour, no time at midnight.
    return "Orden generada desde el presupuesto nº " + joined(proposal["dpi_id"]) + " , el " + runtime::CStr(now);
}

void addDate(session::FieldList& campos, std::string_view column, const screen::TextBox& box, std::string_view null) {
    if (runtime::IsDate(box.text())) {
        campos.Add(column, Tipo::dateText, box);
    } else {
        campos.Add(column, Tipo::expression, null);
    }
}

/// A repeat order takes the article of the last order with the same reference.
void addArticle(session::FieldList& campos, sql::Connection& connection, const std::string& reference) {
    if (!reference.empty()) {
        // Differs D-511: a quote in the reference is escaped; otherwise it would end the literal, and a reference could
        // find an article of any order.
        const sql::Recordset earlier = connection.execute(
            "Select top 1 art_cod,art_des from art inner join orden on art_cod = orden_art where orden_ref = '" +
            runtime::Replace(runtime::Trim(reference), "'", "''") + "' order by orden_id desc");
        if (earlier.hasRows()) {
            campos.Add("ORDEN_ART", Tipo::text, earlier[0]);
            campos.Add("ORDEN_ADE", Tipo::text, runtime::Left(joined(earlier[1]), articleLength));
            return;
        }
    }
    campos.Add("ORDEN_ADE", Tipo::text, "");
}

/// The customer's order number; the column name is spelled differently for null.
void addCustomerOrder(session::FieldList& campos, const screen::TextBox& box) {
    if (box.text().empty()) {
        // Kept K-145: ORDEN_Ped here, ORDEN_PED there: the same column, but statements are compared to the letter.
        campos.Add("ORDEN_Ped", Tipo::expression, "Null");
    } else {
        campos.Add("ORDEN_PED", Tipo::text, box);
    }
}

}  // namespace

void insertOrder(session::Session& session, const TrackingFields& fields, const sql::Recordset& proposal,
                 const WorkOrder& order, runtime::Date now) {
    const auto& txtPesu = fields.txtPesu;
    sql::Connection& connection = session.Connection();
    const double dGastosFin = FnGastosFinancieros(connection, runtime::CLng(txtPesu(customerCode).text()));
    const std::string sObs = remarks(proposal, now);
    const std::string sDes = orderDescription(proposal);

    session::FieldList& campos = beginRow(session, "ORDEN");
    campos.Add("ORDEN_NUM", Tipo::wholeNumber, order.number);
    campos.Add("ORDEN_SER", Tipo::text, series);
    campos.Add("ORDEN_CLI", Tipo::wholeNumber, txtPesu(customerCode));
    campos.Add("ORDEN_NOM", Tipo::text, txtPesu(customerName));
    campos.Add("ORDEN_GF", Tipo::number, dGastosFin);
    campos.Add("ORDEN_OBS", Tipo::text, runtime::Left(sObs, remarksLength));
    campos.Add("ORDEN_UNI", Tipo::wholeNumber, txtPesu(pieces));
    campos.Add("ORDEN_REF", Tipo::text, runtime::Trim(txtPesu(customerReference).text()));
    campos.Add("ORDEN_INI", Tipo::dateText, runtime::Format(now, dayMask));
    addArticle(campos, connection, txtPesu(customerReference).text());
    addDate(campos, "ORDEN_PLA", txtPesu(deliveryDate), "Null");
    campos.Add("ORDEN_PRE", Tipo::number, txtPesu(piecePrice));
    campos.Add("ORDEN_IdDPI", Tipo::wholeNumber, proposal["dpi_id"]);
    addCustomerOrder(campos, txtPesu(customerOrder));
    campos.Add("ORDEN_DES", Tipo::text, runtime::Left(sDes, descriptionLength));

    requireConnection(session);
    require(session::insertAddedFields(session));
}

void markProposal(session::Session& session, const TrackingFields& fields, const sql::Recordset& proposal,
                  const WorkOrder& order) {
    const auto& txtPesu = fields.txtPesu;
    session::FieldList& campos = beginRow(session, "DPI", " where dpi_id = " + joined(proposal["dpi_id"]));
    campos.Add("DPI_Orden", Tipo::wholeNumber, order.number);
    campos.Add("DPI_FAcepta", Tipo::expression, " getdate() ");
    addDate(campos, "DPI_FPedCliente", txtPesu(orderDate), " Null ");
    addDate(campos, "DPI_FechaEntrega", txtPesu(deliveryDate), " Null ");
    campos.Add("DPI_PedCliente", Tipo::text, txtPesu(customerOrder));
    campos.Add("DPI_RefCli", Tipo::text, txtPesu(customerReference));

    requireConnection(session);
    require(session::updateAddedFields(session));
}

std::int32_t orderIdOf(sql::Connection& connection, std::int32_t number) {
    // Kept K-146: the id is read by the order's number, which is not unique: of two orders with one number the first
    // returned by the server is used. Required as it is; the statement is compared to the letter.
    const sql::Recordset row =
        connection.execute("Select orden_id FROM ORDEN where orden_num=" + runtime::CStr(std::int64_t{number}));
    return row[0].toLong();
}

}  // namespace velmora::tracking
