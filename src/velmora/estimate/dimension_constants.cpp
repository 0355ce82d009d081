#include "velmora/estimate/dimension_constants.h"

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;

double DimensionConstants::FnDmCubo(double& dp) {
    const double k = hubFactor(dp);
    f_.lblFormulaDM.setCaption("DP x " + CStr(k));
    return scaledToFive(dp, k);
}

double DimensionConstants::FnAnchoTotal(double& dp) {
    const double k = totalWidthFactor(dp);
    // Kept K-005: a factor of 0 gives "---" here and "DP x 0" at the hub. Required as it is; users read both captions.
    f_.lblFormulaAncho.setCaption(k == 0 ? "---" : "DP x " + CStr(k));
    return scaledToFive(dp, k);
}

double DimensionConstants::hubFactor(double dp) const {
    return factor("SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 1 and ", dp);
}

double DimensionConstants::totalWidthFactor(double dp) const {
    return factor("SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 2 and ", dp);
}

double DimensionConstants::factor(const char* statement, double dp) const {
    const std::string text = runtime::shortest(dp);
    const sql::Recordset row =
        session_.Connection().execute(std::string(statement) + "Calculos_Valor1<=" + text +
                                      " and Calculos_Valor2>=" + text + " order by Calculos_Valor2 ");
    return row.hasRows() ? row[0].toDouble() : 1;
}

}  // namespace velmora::estimate
