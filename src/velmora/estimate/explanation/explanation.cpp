#include "velmora/estimate/explanation/explanation.h"

#include <array>

namespace velmora::estimate {

namespace {

std::string withUnit(const std::string& value, const std::string& unit) {
    return unit.empty() || value.empty() ? value : value + " " + unit;
}

std::string lineOf(const Input& input) {
    const std::string line = "· " + input.name + ": " + input.value;
    return input.source.empty() ? line : line + " (" + input.source + ")";
}

std::string standingOf(const Explanation& e) {
    const std::string byRule =
        e.result.empty() ? "" : " Con los datos de ahora la regla da " + withUnit(e.result, e.unit) + ".";
    switch (e.origin) {
        case Origin::calculated:
            return {};
        case Origin::typed:
            return "Escrito a mano: " + withUnit(e.shown, e.unit) + "." + byRule;
        case Origin::kept:
            return "No se ha vuelto a calcular: es el valor guardado con la propuesta, o el de antes de un cambio." +
                   byRule;
        case Origin::pending:
            return "Todavía no se ha calculado." + byRule;
    }
    return {};
}

}  // namespace

std::string_view wordsOf(Topic topic) {
    constexpr std::array words{"Medidas", "Medidas de corte", "Pesos", "Corte de sierra", "Material", "Precio"};
    return words.at(static_cast<std::size_t>(topic));
}

std::string_view wordsOf(Origin origin) {
    constexpr std::array words{"Calculado", "Escrito a mano", "Sin recalcular", "Pendiente"};
    return words.at(static_cast<std::size_t>(origin));
}

std::vector<std::string> linesOf(const Explanation& e) {
    std::vector<std::string> lines{e.title + ": " + withUnit(e.shown, e.unit), "Regla: " + e.rule};
    for (const Input& input : e.inputs) {
        lines.push_back(lineOf(input));
    }
    lines.insert(lines.end(), e.steps.begin(), e.steps.end());
    if (!e.result.empty()) {
        lines.push_back("Resultado: " + withUnit(e.result, e.unit));
    }
    if (!e.rounding.empty()) {
        lines.push_back("Redondeo: " + e.rounding);
    }
    if (!e.obstacle.empty()) {
        lines.push_back("No se puede calcular: " + e.obstacle);
    }
    if (const std::string standing = standingOf(e); !standing.empty()) {
        lines.push_back(standing);
    }
    return lines;
}

std::string textOf(const Explanation& explanation) {
    std::string text;
    for (const std::string& line : linesOf(explanation)) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

}  // namespace velmora::estimate
