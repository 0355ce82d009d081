#pragma once
// A company with a logo, all of it invented.

#include <string>

#include "velmora/paper/company.h"

namespace velmora::support {

inline const std::string svgLogo =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 200 100"><circle cx="50" cy="50" r="45" fill="#1b4f8a"/>)"
    R"(<circle cx="50" cy="50" r="18" fill="#ffffff"/><rect x="110" y="30" width="80" height="40" fill="#d08a1d"/></svg>)";

inline paper::Company sampleCompany() {
    return {.name = "Talleres Ejemplo, S.L.",
            .taxNumber = "B00000000",
            .address = "Calle del Torno, 3\n50001 Zaragoza",
            .telephone = "976 000 000",
            .email = "taller@ejemplo.invalid",
            .logo = svgLogo,
            .terms =
                "Precios sin IVA. Portes debidos, salvo acuerdo distinto. Pago a 30 días de la fecha de factura.\n"
                "Las piezas se fabrican según las medidas de esta oferta; compruébelas antes de aceptarla.",
            .validityDays = 30};
}

}  // namespace velmora::support
