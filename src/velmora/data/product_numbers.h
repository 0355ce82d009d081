#pragma once
// The stored numbers of the product types by name, and the smaller groups that single rules go by.

#include "velmora/data/product_types.h"

namespace velmora::data {

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

/// 1, 14: the totals void the hub's fields.
constexpr bool hubIsVoid(int type) {
    return type == disc || type == tripleDisc;
}
/// 2, 3: two like hubs, each cut from stock.
constexpr bool hasTwinHubs(int type) {
    return type == twoHubSprocket || type == smoothPulley;
}
/// 3, 11: the exterior follows the root diameter.
constexpr bool isSmoothPulley(int type) {
    return type == smoothPulley || type == variablePulley;
}
/// 6, 7.
constexpr bool isDoubleDisc(int type) {
    return type == doubleDisc || type == twoChainDisc;
}
/// 1, 10, 11: the disc is cut from plate also up to the one-piece limit.
constexpr bool isCutFromPlate(int type) {
    return type == disc || isVariable(type);
}

}  // namespace velmora::data
