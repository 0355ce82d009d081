#include "velmora/estimate/price.h"

#include <algorithm>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

double cents(double amount) {
    return runtime::Redondear(amount, 2);
}

double sawCut(double diameter, double rate) {
    return cents(diameter * rate);
}

double hubsSawCut(double diameter, double rate, int hubs) {
    return sawCut(diameter, rate) * hubs;
}

double barSawCut(double length, double thickness, double rate) {
    return std::max(length, thickness) * rate;
}

double lineRoundedTwice(const StockLine& line) {
    return cents(cents(line.weight * line.price) + line.cut);
}

double lineRoundedOnce(const StockLine& line) {
    return cents(line.weight * line.price + line.cut);
}

double barLine(const StockLine& line) {
    return line.cut + line.weight * line.price;
}

double cutInBarLine(double amount, double weight, double price) {
    return amount - cents(weight * price);
}

double materialOf(double discAmount, double hubAmount) {
    return cents(discAmount + hubAmount);
}

double piecePrice(const PieceParts& parts) {
    return cents(parts.material + parts.sawCharge + parts.labour + parts.subcontracted + parts.sundries);
}

double lotPrice(double piece, double units) {
    return cents(piece * units);
}

double spreadSawCharge(double charge, double units) {
    return cents(runtime::divide(charge, units));
}

}  // namespace velmora::estimate
