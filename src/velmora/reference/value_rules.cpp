#include "velmora/reference/value_rules.h"

#include <cmath>

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::reference {

using runtime::CDbl;
using runtime::CStr;
using runtime::Redondear;

// Kept K-160: the decimals are cut in the text. A result without decimals has no comma, so the four appended zeros
// become part of the number and only its first two digits remain: 152 gives 15. With an exponent, the zeros make a very
// large result too large (error 6) and a very small one 0. Required as it is; it determines stored rows.
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

// Chosen C-166: tip and root diameter are computed from the displayed pitch diameter, which is rounded.
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
