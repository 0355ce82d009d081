#include "velmora/platform/runtime/errors.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velmora::runtime {

namespace {

struct Wording {
    long number;
    std::string_view text;
};

constexpr std::array wordings{
    Wording{invalidProcedureCall, "Argumento o llamada a procedimiento no válida"},
    Wording{overflow, "Desbordamiento"},
    Wording{subscriptOutOfRange, "El subíndice está fuera del intervalo"},
    Wording{divisionByZero, "División por cero"},
    Wording{typeMismatch, "No coinciden los tipos"},
    Wording{objectNotSet, "Variable de objeto o bloque With no establecido"},
    Wording{invalidUseOfNull, "Uso no válido de Null"},
    Wording{controlArrayElementMissing, "El elemento de la matriz de controles no existe"},
    Wording{cannotCreateObject, "El componente ActiveX no puede crear el objeto"},
};

constexpr std::string_view genericWording = "Error definido por la aplicación o el objeto";

}  // namespace

std::string errorDescription(long number) {
    const auto* found = std::ranges::find(wordings, number, &Wording::number);
    return std::string(found == wordings.end() ? genericWording : found->text);
}

void raise(long number) {
    throw RuntimeError(number, errorDescription(number));
}

}  // namespace velmora::runtime
