#pragma once
// What a piece and a lot cost for other numbers of pieces, by the form's own rules. Pure; money is euros (€).

#include <array>
#include <span>
#include <vector>

#include "velmora/estimate/price.h"

namespace velmora::estimate {

/// The numbers of pieces that a ladder begins with.
inline constexpr std::array<double, 7> usualPieces{1, 2, 5, 10, 20, 50, 100};

/// How a ladder treats the saw charge, the only amount that the form ever spreads over the lot.
enum class SawCharge {
    asItStands,  ///< the piece keeps its price: what the form shows after another number of pieces is typed
    spread,      ///< what it shows when the saw charge is summed up after that: each piece gets its share
};

/// What a ladder is worked out from.
struct LadderBasis {
    double piece = 0;       ///< the price of a piece as it stands
    PieceParts parts = {};  ///< what it consists of, with the whole saw charge
};

struct LadderStep {
    double pieces;
    double piece;  ///< €, whole cents unless the piece was typed with more
    double lot;    ///< €, whole cents
};

/// One step for each number of pieces, in the order given; a number that is not positive has none.
std::vector<LadderStep> priceLadder(const LadderBasis& basis, SawCharge saw, std::span<const double> pieces);

}  // namespace velmora::estimate
