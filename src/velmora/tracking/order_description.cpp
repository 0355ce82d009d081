#include "velmora/tracking/order_description.h"

#include <string_view>

#include "velmora/data/product_types.h"

namespace velmora::tracking {

namespace {

/// The values of a proposal as formatted in an order's description.
class Words {
  public:
    explicit Words(const sql::Recordset& proposal) : proposal_(proposal) {}

    std::string chain() const { return text("dpi_pdm_texto"); }
    std::string teeth() const { return text("DPI_Z"); }
    std::string bore() const { return " Eje " + text("DPI_Eje"); }
    std::string toothing() const {
        return teeth() + " Paso " + text("DPI_pas") + " AC " + text("DPI_ac") + " Rodillo " + text("DPI_rodillo");
    }
    std::string rack() const {
        return chain() + " Paso " + text("DPI_pas") + " Modulo " + text("DPI_modulo") + " (" + text("DPI_Alt") + "x" +
               text("DPI_AnchoCubo") + "x" + text("DPI_llanta") + ")";
    }
    std::string coupling() const {
        const sql::Value& coupling = proposal_["DPI_Acopla"];
        return !coupling.isNull() && coupling.toDouble() == 1 ? "Mec. " : "";
    }

  private:
    std::string text(std::string_view column) const { return joined(proposal_[column]); }

    const sql::Recordset& proposal_;
};

}  // namespace

// Chosen C-141: a null in a description is an empty text, as in concatenation, so that the order is not refused for it.
std::string joined(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

std::string orderDescription(const sql::Recordset& proposal) {
    const data::ProductType& type = data::productType(proposal["DPI_tipo"].toLong());
    const std::string first(type.firstWords);
    const Words words(proposal);
    switch (type.description) {
        case data::OrderDescription::none:
            return {};
        case data::OrderDescription::toothing:
            return words.coupling() + first + words.toothing() + words.bore();
        case data::OrderDescription::chain:
            return words.coupling() + first + words.chain() + std::string(type.wordsAfterChain) + words.teeth() +
                   words.bore();
        case data::OrderDescription::rack:  // which is never a coupling
            return first + words.rack();
    }
    return {};
}

}  // namespace velmora::tracking
