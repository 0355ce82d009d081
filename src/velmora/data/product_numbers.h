#pragma once
// The smaller groups of product types that single rules go by.

#include "velmora/data/product_types.h"

namespace velmora::data {

/// 1, 14: the totals void the hub's fields.
constexpr bool hubIsVoid(int type) {
    return productType(type).hubVoid;
}
/// 2, 3: two like hubs, each cut from stock.
constexpr bool hasTwinHubs(int type) {
    return productType(type).hubs == Hubs::twoAlike;
}
/// 3, 11: the exterior follows the root diameter.
constexpr bool isSmoothPulley(int type) {
    return productType(type).toothing == Toothing::smooth;
}
/// 6, 7.
constexpr bool isDoubleDisc(int type) {
    return isDouble(type) && isDiscWithoutHub(type);
}
/// 1, 10, 11: the disc is cut from plate also up to the one-piece limit.
constexpr bool isCutFromPlate(int type) {
    return productType(type).cutFromPlate;
}

}  // namespace velmora::data
