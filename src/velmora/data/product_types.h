#pragma once
// The product types, one row per type: the properties of the piece, and how screen, paper, stored row and order treat
// it. The position in the list is stored in proposals: neither order nor spelling of the names may change.

#include <array>
#include <cstddef>
#include <string_view>

namespace velmora::data {

/// Names of the stored numbers, for rules and tests about a single type.
enum ProductNumber : int {
    plainSprocket = 0,
    disc = 1,
    twoHubSprocket = 2,
    smoothPulley = 3,
    doubleSprocket = 4,
    twoChainSprocket = 5,
    doubleDisc = 6,
    twoChainDisc = 7,
    gear = 8,
    gearDisc = 9,
    variableSprocket = 10,
    variablePulley = 11,
    tripleSprocket = 12,
    rack = 13,
    tripleDisc = 14,
};

/// Construction of the piece. Determines its drawing and the frame of the main form that shows its measures.
enum class ProductShape {
    oneRim,     ///< Frame2
    twoRims,    ///< fraPDM
    threeRims,  ///< fraTriple
    variable,   ///< a rim between two different hubs: fraDobleVar
    rack,       ///< a toothed bar: fraCremallera and fraCre1
};

enum class Hubs {
    noWheel,  ///< the rack, and a type outside the list
    none,     ///< a disc
    one,
    twoAlike,
    twoUnlike,  ///< A and B
};

/// What is between root and exterior diameter.
enum class Toothing {
    chain,
    gear,  ///< a module in place of the chain's width and roller
    smooth,
    rack,
};

/// What determines the total width when another width is entered or the type is chosen.
enum class TotalWidth {
    ownRules,  ///< typed, or computed with the values of the chain, gear or rack
    rim,
    rimAndHub,
    rimAndTwoHubs,
    rimAndUnlikeHubs,
};

/// What a save writes to the columns DPI_PDM_Tipo, _b1, _x, _h1 and _Texto.
enum class ChainColumns {
    null,
    chainWithSketchGap,  ///< the chain and its widths, X from the sketch of two rims
    chainWithTypedGap,   ///< the same, X from the field of measures
    secondHub,           ///< its diameter in _b1, its width in _h1
    notWritten,
};

/// The rest of an order's description after its first words.
enum class OrderDescription {
    none,      ///< the order has no description
    toothing,  ///< teeth, pitch, chain width, roller, bore
    chain,     ///< the chain's name, `wordsAfterChain`, teeth, bore
    rack,      ///< the rack's name, pitch, module, sizes
};

/// The rows of material of an order, each only if its part has a weight.
// Kept K-149: the gear and the variable pulley have hubs but get no row for them. Required as it is; it determines the
// stored rows.
enum class OrderMaterials { disc, discAndHub, bar };

struct ProductType {
    int number = -1;  ///< the position in the list
    std::string_view name;

    // The piece.
    ProductShape shape = ProductShape::oneRim;
    Hubs hubs = Hubs::noWheel;
    Toothing toothing = Toothing::chain;

    // Screen.
    std::string_view measuresCaption;             ///< of the shape's frame
    std::string_view storedMeasuresCaption = {};  ///< of a gear's frame once the proposal has been stored and loaded
    std::string_view rimCaption = "Llanta";       ///< of the width over all rims
    TotalWidth totalWidth = TotalWidth::ownRules;
    bool chainList = false;        ///< a chain is chosen and its values are looked up
    bool gapTyped = false;         ///< the chain's gap X can be overwritten
    bool widthsFromChain = false;  ///< total width, rim and b1 stay locked when a stored proposal is changed

    // Costs.
    bool hubVoid = false;       ///< the totals write 0 to the hub's fields
    bool cutFromPlate = false;  ///< the disc is cut from plate even up to the one-piece limit

    // The stored row and the order.
    ChainColumns chainColumns = ChainColumns::null;
    bool secondHubLoaded = false;  ///< a load fills in the stored second hub
    OrderDescription description = OrderDescription::none;
    std::string_view firstWords = {};       ///< of the description
    std::string_view wordsAfterChain = {};  ///< of the description, where it names the chain
    OrderMaterials materials = OrderMaterials::disc;

    /// One hub or two, equal or not.
    constexpr bool hasHub() const { return hubs != Hubs::noWheel && hubs != Hubs::none; }
};

/// Used for a type outside the list, including -1 (none chosen): drawn as a piece with one hub; no hub is priced.
inline constexpr ProductType unknownProductType{};

inline constexpr auto productTypes = std::to_array<ProductType>({
    {.number = plainSprocket,
     .name = "Piñon Especial",
     .shape = ProductShape::oneRim,
     .hubs = Hubs::one,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas del piñon",
     .totalWidth = TotalWidth::rimAndHub,
     .chainColumns = ChainColumns::null,
     .description = OrderDescription::toothing,
     .firstWords = "Piñon Especial Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = disc,
     .name = "Disco",
     .shape = ProductShape::oneRim,
     .hubs = Hubs::none,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas del disco",
     .totalWidth = TotalWidth::rim,
     .hubVoid = true,
     .cutFromPlate = true,
     .chainColumns = ChainColumns::null,
     .description = OrderDescription::toothing,
     .firstWords = "Disco Z ",
     .materials = OrderMaterials::disc},
    {.number = twoHubSprocket,
     .name = "Piñon 2 Cubos",
     .shape = ProductShape::oneRim,
     .hubs = Hubs::twoAlike,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas del piñon de 2 cubos",
     .totalWidth = TotalWidth::rimAndTwoHubs,
     .chainColumns = ChainColumns::null,
     .description = OrderDescription::toothing,
     .firstWords = "Piñon de dos cubos Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = smoothPulley,
     .name = "Poleas Lisas",
     .shape = ProductShape::oneRim,
     .hubs = Hubs::twoAlike,
     .toothing = Toothing::smooth,
     .measuresCaption = "Medidas de la polea lisa",
     .totalWidth = TotalWidth::rimAndTwoHubs,
     .chainColumns = ChainColumns::null,
     .description = OrderDescription::toothing,
     .firstWords = "Polea Lisa Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = doubleSprocket,
     .name = "Piñon Doble",
     .shape = ProductShape::twoRims,
     .hubs = Hubs::one,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Piñon Doble",
     .rimCaption = "Llanta (B2)",
     .chainList = true,
     .widthsFromChain = true,
     .chainColumns = ChainColumns::chainWithSketchGap,
     .description = OrderDescription::chain,
     .firstWords = "Piñon ",
     .wordsAfterChain = " Doble de Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = twoChainSprocket,
     .name = "Piñon de Dos Cadenas",
     .shape = ProductShape::twoRims,
     .hubs = Hubs::one,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Piñon Doble",
     .rimCaption = "Llanta (B2)",
     .chainList = true,
     .gapTyped = true,
     .chainColumns = ChainColumns::chainWithSketchGap,
     .description = OrderDescription::chain,
     .firstWords = "Piñon ",
     .wordsAfterChain = " de dos cadenas de Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = doubleDisc,
     .name = "Disco Doble",
     .shape = ProductShape::twoRims,
     .hubs = Hubs::none,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Piñon Doble",
     .rimCaption = "Llanta (B2)",
     .chainList = true,
     .chainColumns = ChainColumns::chainWithSketchGap,
     .description = OrderDescription::chain,
     .firstWords = "Disco ",
     .wordsAfterChain = " Doble de Z ",
     .materials = OrderMaterials::disc},
    {.number = twoChainDisc,
     .name = "Disco de Dos Cadenas",
     .shape = ProductShape::twoRims,
     .hubs = Hubs::none,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Piñon Doble",
     .rimCaption = "Llanta (B2)",
     .chainList = true,
     .gapTyped = true,
     .chainColumns = ChainColumns::chainWithSketchGap,
     .description = OrderDescription::chain,
     .firstWords = "Disco ",
     .wordsAfterChain = " de dos cadenas de Z ",
     .materials = OrderMaterials::disc},
    {.number = gear,
     .name = "Engranaje Recto",
     .shape = ProductShape::oneRim,
     .hubs = Hubs::one,
     .toothing = Toothing::gear,
     .measuresCaption = "Medidas del piñon",
     .storedMeasuresCaption = "Medidas del Engranaje",
     .chainColumns = ChainColumns::notWritten,
     .description = OrderDescription::toothing,
     .firstWords = "Engranaje Recto Z ",
     .materials = OrderMaterials::disc},
    {.number = gearDisc,
     .name = "Disco Engranaje Recto",
     .shape = ProductShape::oneRim,
     .hubs = Hubs::none,
     .toothing = Toothing::gear,
     .measuresCaption = "Medidas del disco",
     .storedMeasuresCaption = "Medidas del Disco de Engranaje",
     .chainColumns = ChainColumns::notWritten,
     .description = OrderDescription::toothing,
     .firstWords = "Disco Engranaje recto Z ",
     .materials = OrderMaterials::disc},
    {.number = variableSprocket,
     .name = "Piñon 2 Cubos Variable",
     .shape = ProductShape::variable,
     .hubs = Hubs::twoUnlike,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Piñon 2 Cubos Variables",
     .totalWidth = TotalWidth::rimAndUnlikeHubs,
     .cutFromPlate = true,
     .chainColumns = ChainColumns::secondHub,
     .secondHubLoaded = true,
     .description = OrderDescription::toothing,
     .firstWords = "Piñon de dos cubos Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = variablePulley,
     .name = "Poleas Lisas 2 Cubos Variable",
     .shape = ProductShape::variable,
     .hubs = Hubs::twoUnlike,
     .toothing = Toothing::smooth,
     .measuresCaption = "Medidas Polea Lisa 2 Cubos Variable",
     .totalWidth = TotalWidth::rimAndUnlikeHubs,
     .cutFromPlate = true,
     .chainColumns = ChainColumns::secondHub,
     .description = OrderDescription::none,
     .materials = OrderMaterials::disc},
    {.number = tripleSprocket,
     .name = "Piñon Triple",
     .shape = ProductShape::threeRims,
     .hubs = Hubs::one,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Piñon Triple",
     .rimCaption = "Llanta (B3)",
     .chainList = true,
     .widthsFromChain = true,
     .chainColumns = ChainColumns::chainWithTypedGap,
     .description = OrderDescription::chain,
     .firstWords = "Piñon ",
     .wordsAfterChain = " Triple de Z ",
     .materials = OrderMaterials::discAndHub},
    {.number = rack,
     .name = "Cremallera",
     .shape = ProductShape::rack,
     .hubs = Hubs::noWheel,
     .toothing = Toothing::rack,
     .measuresCaption = "Medidas Cremallera",
     .chainColumns = ChainColumns::notWritten,
     .description = OrderDescription::rack,
     .firstWords = "Cremallera ",
     .materials = OrderMaterials::bar},
    {.number = tripleDisc,
     .name = "Disco Triple",
     .shape = ProductShape::threeRims,
     .hubs = Hubs::none,
     .toothing = Toothing::chain,
     .measuresCaption = "Medidas Disco Triple",
     .rimCaption = "Llanta (B3)",
     .chainList = true,
     .widthsFromChain = true,
     .hubVoid = true,
     .chainColumns = ChainColumns::chainWithTypedGap,
     .description = OrderDescription::none,
     .materials = OrderMaterials::disc},
});

/// The row of a stored type; nullptr outside 0 to 14.
constexpr const ProductType* findProductType(int type) {
    return type >= 0 && static_cast<std::size_t>(type) < productTypes.size()
               ? &productTypes[static_cast<std::size_t>(type)]
               : nullptr;
}

/// The row of a stored type; `unknownProductType` outside 0 to 14.
constexpr const ProductType& productType(int type) {
    const ProductType* row = findProductType(type);
    return row ? *row : unknownProductType;
}

/// The name of a stored type; empty outside 0 to 14.
constexpr std::string_view productTypeName(int type) {
    return productType(type).name;
}

static_assert(
    [] {
        for (std::size_t i = 0; i < productTypes.size(); ++i) {
            if (productTypes[i].number != static_cast<int>(i)) {
                return false;
            }
        }
        return true;
    }(),
    "each row bears the number of its place");

}  // namespace velmora::data
