#include "velmora/tracking/order_description.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "velmora/data/product_numbers.h"

namespace velmora::tracking {

namespace {

/// What follows the teeth: the whole chain, or only the shaft where the chain is already named.
enum class Tail { chain, shaft };

struct Wording {
    int type;
    std::string_view before;
    std::string_view afterChainName;  ///< empty: the chain is not named
    Tail tail;
};

constexpr std::array wordings{
    Wording{data::plainSprocket, "Piñon Especial Z ", "", Tail::chain},
    Wording{data::disc, "Disco Z ", "", Tail::chain},
    Wording{data::twoHubSprocket, "Piñon de dos cubos Z ", "", Tail::chain},
    Wording{data::smoothPulley, "Polea Lisa Z ", "", Tail::chain},
    Wording{data::doubleSprocket, "Piñon ", " Doble de Z ", Tail::shaft},
    Wording{data::twoChainSprocket, "Piñon ", " de dos cadenas de Z ", Tail::shaft},
    Wording{data::doubleDisc, "Disco ", " Doble de Z ", Tail::shaft},
    Wording{data::twoChainDisc, "Disco ", " de dos cadenas de Z ", Tail::shaft},
    Wording{data::gear, "Engranaje Recto Z ", "", Tail::chain},
    Wording{data::gearDisc, "Disco Engranaje recto Z ", "", Tail::chain},
    Wording{data::variableSprocket, "Piñon de dos cubos Z ", "", Tail::chain},
    Wording{data::tripleSprocket, "Piñon ", " Triple de Z ", Tail::shaft},
};

std::string rackDescription(const sql::Recordset& proposal) {
    const auto text = [&](std::string_view column) { return joined(proposal[column]); };
    return "Cremallera " + text("dpi_pdm_texto") + " Paso " + text("DPI_pas") + " Modulo " + text("DPI_modulo") + " (" +
           text("DPI_Alt") + "x" + text("DPI_AnchoCubo") + "x" + text("DPI_llanta") + ")";
}

std::string tailOf(const sql::Recordset& proposal, Tail tail) {
    const auto text = [&](std::string_view column) { return joined(proposal[column]); };
    const std::string shaft = " Eje " + text("DPI_Eje");
    if (tail == Tail::shaft) {
        return text("DPI_Z") + shaft;
    }
    return text("DPI_Z") + " Paso " + text("DPI_pas") + " AC " + text("DPI_ac") + " Rodillo " + text("DPI_rodillo") +
           shaft;
}

}  // namespace

// Chosen C-141: a null in a description is an empty text, as in concatenation, so that the order is not refused for it.
std::string joined(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

std::string orderDescription(const sql::Recordset& proposal) {
    const int type = proposal["DPI_tipo"].toLong();
    if (type == data::rack) {
        return rackDescription(proposal);
    }
    const auto* wording = std::ranges::find(wordings, type, &Wording::type);
    if (wording == wordings.end()) {
        return {};
    }
    const sql::Value& coupling = proposal["DPI_Acopla"];
    std::string description = !coupling.isNull() && coupling.toDouble() == 1 ? "Mec. " : "";
    description += wording->before;
    if (!wording->afterChainName.empty()) {
        description += joined(proposal["dpi_pdm_texto"]);
        description += wording->afterChainName;
    }
    return description + tailOf(proposal, wording->tail);
}

}  // namespace velmora::tracking
