#include "velmora/tracking/credit_gate.h"

#include <string>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::tracking {

namespace {

constexpr const char* debtAndLimit =
    "SELECT (select isnull(round(sum(rec_importe),2),0) FROM REC where rec_sit IN('1','2','3','4') AND Rec_IdClPr = "
    "cli.cli_id) "
    " +  (SELECT isnull(round(sum(lav_importe),2),0) From Cav INNER JOIN Lav ON Cav_Id = LAv_Idcav WHERE (Cav_Situa =1 "
    "or Cav_Situa =3) and cav_idcli = cli.cli_id) AS TOTAL, "
    "CLI_ImpMaxRiesgo,Cli_Riesgo FROM Cli WHERE CLI_COD = ";

double orZero(const sql::Value& value) {
    return value.isNull() ? 0 : value.toDouble();
}

std::string textOf(std::int32_t code) {
    return runtime::CStr(std::int64_t{code});
}

}  // namespace

bool FnRiesgoExcedido(sql::Connection& connection, std::int32_t code, double amount) {
    const sql::Recordset customer = connection.execute(debtAndLimit + textOf(code));
    double dTotal = 0;
    double dLimite = 0;
    if (customer.hasRows()) {
        const sql::Value& debt = customer["Total"];
        // Kept K-140: when the debt is null, the amount is not counted either. Required as it is; it decides which
        // acceptances are refused.
        dTotal = debt.isNull() ? 0 : amount + debt.toDouble();
        // Chosen C-140: any value but 0 and null means that the customer is under risk control; hosts store -1 or 1.
        const bool controlled = customer["Cli_Riesgo"].toBool();
        dLimite = controlled ? orZero(customer["Cli_ImpMaxRiesgo"]) : dTotal + 1;
    }
    // Kept K-141: a total equal to the limit exceeds it. A code without a customer is refused for this reason too: 0
    // equals 0.
    return dTotal >= dLimite;
}

double FnGastosFinancieros(sql::Connection& connection, std::int32_t code) {
    const sql::Recordset customer = connection.execute("Select CLI_GtosFinan from cli where cli_cod=" + textOf(code));
    return customer.hasRows() ? orZero(customer[0]) : 0;
}

}  // namespace velmora::tracking
