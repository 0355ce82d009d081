#include "velmora/reference/value_rules.h"

#include <cmath>

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::reference {

using runtime::CDbl;
using runtime::CStr;
using runtime::Redondear;

// Kept K-160: the cut goes through text. A result without decimals has no comma, so that the four zeros behind it
// become part of the number and its first two figures alone are left: 152 gives 15. The zeros make an exponent of a
// very large result too large (error 6) and of a very small one nothing at all. Rows that users see in the table were
// made so.
double FnDpCadena(double Z, double Paso) {
    if (Z == 0 || Paso == 0) {
        return 0;
    }
    const double dp = runtime::divide(Paso, std::sin(runtime::divide(180, Z) * estimate::shopPi / 180));
    const std::string text = CStr(CDbl(CStr(dp) + "0000"));
    const std::size_t comma = text.find(',');
    const std::size_t whole = comma == std::string::npos ? 0 : comma + 1;
    return CDbl(runtime::Left(text, whole + 2));
}

// Chosen C-166: tip and root are worked out from the pitch diameter as it stands in its field, which is rounded.
GearMeasures gearMeasures(double module, double teeth) {
    constexpr int decimals = 2;
    constexpr double tip = 2;     ///< modules between pitch and outside diameter
    constexpr double root = 2.5;  ///< modules between pitch and inner diameter
    const double dp = Redondear(teeth * module, decimals);
    return {.paso = Redondear(module * estimate::shopPi, decimals),
            .dp = dp,
            .de = Redondear(dp + tip * module, decimals),
            .di = Redondear(dp - root * module, decimals)};
}

}  // namespace velmora::reference
