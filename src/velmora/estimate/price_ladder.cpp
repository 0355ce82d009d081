#include "velmora/estimate/price_ladder.h"

namespace velmora::estimate {

namespace {

// Chosen C-421: a step is what the form shows after its number of pieces is typed, which leaves the price of the piece;
// on request, what it shows once the saw charge, which alone is ever spread, is summed up after that.
double pieceFor(const LadderBasis& basis, SawCharge saw, double pieces) {
    if (saw == SawCharge::asItStands || basis.parts.sawCharge == 0) {
        return basis.piece;
    }
    PieceParts parts = basis.parts;
    parts.sawCharge = spreadSawCharge(basis.parts.sawCharge, pieces);
    return piecePrice(parts);
}

}  // namespace

std::vector<LadderStep> priceLadder(const LadderBasis& basis, SawCharge saw, std::span<const double> pieces) {
    std::vector<LadderStep> steps;
    for (const double each : pieces) {
        if (each > 0) {
            const double piece = pieceFor(basis, saw, each);
            steps.push_back({.pieces = each, .piece = piece, .lot = lotPrice(piece, each)});
        }
    }
    return steps;
}

}  // namespace velmora::estimate
