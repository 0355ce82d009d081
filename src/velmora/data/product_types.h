#pragma once
// The product types. The position in the list is what a proposal stores: neither order nor spelling may change.

#include <array>
#include <cstddef>
#include <string_view>

namespace velmora::data {

enum class ProductFamily { plain, twoHubs, doubleChain, gear, variable, triple, rack };

/// The frame of the main form that holds a type's own measures. The rack has `fraCre1` and `fraCremallera`.
enum class MeasuresFrame { frame2, fraPDM, fraDobleVar, fraTriple, fraCremallera };

struct ProductType {
    int number = 0;
    std::string_view name;
    ProductFamily family = ProductFamily::plain;
    bool hub = true;
    bool teeth = true;
    bool chainList = false;
    MeasuresFrame frame = MeasuresFrame::frame2;
};

inline constexpr std::array<ProductType, 15> productTypes{{
    {.number = 0, .name = "Piñon Especial"},
    {.number = 1, .name = "Disco", .hub = false},
    {.number = 2, .name = "Piñon 2 Cubos", .family = ProductFamily::twoHubs},
    {.number = 3, .name = "Poleas Lisas", .family = ProductFamily::twoHubs, .teeth = false},
    {.number = 4,
     .name = "Piñon Doble",
     .family = ProductFamily::doubleChain,
     .chainList = true,
     .frame = MeasuresFrame::fraPDM},
    {.number = 5,
     .name = "Piñon de Dos Cadenas",
     .family = ProductFamily::doubleChain,
     .chainList = true,
     .frame = MeasuresFrame::fraPDM},
    {.number = 6,
     .name = "Disco Doble",
     .family = ProductFamily::doubleChain,
     .hub = false,
     .chainList = true,
     .frame = MeasuresFrame::fraPDM},
    {.number = 7,
     .name = "Disco de Dos Cadenas",
     .family = ProductFamily::doubleChain,
     .hub = false,
     .chainList = true,
     .frame = MeasuresFrame::fraPDM},
    {.number = 8, .name = "Engranaje Recto", .family = ProductFamily::gear},
    {.number = 9, .name = "Disco Engranaje Recto", .family = ProductFamily::gear, .hub = false},
    {.number = 10,
     .name = "Piñon 2 Cubos Variable",
     .family = ProductFamily::variable,
     .frame = MeasuresFrame::fraDobleVar},
    {.number = 11,
     .name = "Poleas Lisas 2 Cubos Variable",
     .family = ProductFamily::variable,
     .teeth = false,
     .frame = MeasuresFrame::fraDobleVar},
    {.number = 12,
     .name = "Piñon Triple",
     .family = ProductFamily::triple,
     .chainList = true,
     .frame = MeasuresFrame::fraTriple},
    {.number = 13,
     .name = "Cremallera",
     .family = ProductFamily::rack,
     .hub = false,
     .frame = MeasuresFrame::fraCremallera},
    {.number = 14,
     .name = "Disco Triple",
     .family = ProductFamily::triple,
     .hub = false,
     .chainList = true,
     .frame = MeasuresFrame::fraTriple},
}};

/// The row of a stored type; nullptr outside 0 to 14.
constexpr const ProductType* findProductType(int type) {
    return type >= 0 && static_cast<std::size_t>(type) < productTypes.size()
               ? &productTypes[static_cast<std::size_t>(type)]
               : nullptr;
}

/// The name of a stored type; empty outside 0 to 14.
constexpr std::string_view productTypeName(int type) {
    const ProductType* row = findProductType(type);
    return row ? row->name : std::string_view();
}

constexpr bool isFamily(int type, ProductFamily family) {
    const ProductType* row = findProductType(type);
    return row && row->family == family;
}

// The groups in which types are treated alike. A type outside the list belongs to none.

/// 4, 5, 6, 7, 12, 14: a chain is chosen, and its values are loaded and saved.
constexpr bool hasChainList(int type) {
    const ProductType* row = findProductType(type);
    return row && row->chainList;
}
/// 4, 5, 6, 7: double and two-chain products.
constexpr bool isDouble(int type) {
    return isFamily(type, ProductFamily::doubleChain);
}
/// 12, 14.
constexpr bool isTriple(int type) {
    return isFamily(type, ProductFamily::triple);
}
/// 8, 9: a module in place of the pitch.
constexpr bool isGear(int type) {
    return isFamily(type, ProductFamily::gear);
}
/// 10, 11.
constexpr bool isVariable(int type) {
    return isFamily(type, ProductFamily::variable);
}
/// 13.
constexpr bool isRack(int type) {
    return isFamily(type, ProductFamily::rack);
}
/// 2, 3, 10, 11: the total width is the rim and two hubs.
constexpr bool isTwoHubs(int type) {
    return isFamily(type, ProductFamily::twoHubs) || isVariable(type);
}
/// 1, 6, 7, 9, 14: a disc with no hub, for which no hub is cut.
constexpr bool isDiscWithoutHub(int type) {
    const ProductType* row = findProductType(type);
    return row && !row->hub && row->family != ProductFamily::rack;
}
/// 0, 2, 3, 4, 5, 8, 10, 11, 12.
constexpr bool hasHub(int type) {
    const ProductType* row = findProductType(type);
    return row && row->hub;
}
/// All but 3 and 11.
constexpr bool hasTeeth(int type) {
    const ProductType* row = findProductType(type);
    return row && row->teeth;
}

}  // namespace velmora::data
