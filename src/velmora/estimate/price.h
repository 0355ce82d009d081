#pragma once
// The shop's prices as functions of numbers: no fields, no screen. Money is euros (€), lengths and diameters are
// millimetres (mm), weights kilograms (kg), a material's price is €/kg of its sale price, a saw's rate €/mm of cut.
//
// The formulas are the shop's own rules; stored proposals hold their results to the cent.

namespace velmora::estimate {

/// An amount in whole cents, half away from zero.
double cents(double amount);

// --- The saw -------------------------------------------------------------------------------------------------------

/// The cut of a round, the disc's or one hub's (€, whole cents): diameter (mm) by rate (€/mm).
double sawCut(double diameter, double rate);

/// The cuts of a piece's hubs (€): the cut of one, in whole cents, as often as there are hubs (1 or 2).
double hubsSawCut(double diameter, double rate, int hubs);

/// The cut of a rack's bar (€): along the larger of its length and its thickness (mm) by rate (€/mm). Not rounded: its
/// field shows whole cents, but a newly chosen material is priced with the unrounded value.
double barSawCut(double length, double thickness, double rate);

// --- A line of stock -----------------------------------------------------------------------------------------------

/// What a disc, a hub or a bar costs: its material by weight and its cut.
struct StockLine {
    double weight;  ///< kg
    double price;   ///< €/kg
    double cut;     ///< €
};

// The amount of a disc's or a hub's line has two roundings. They differ by a cent when the cut has thousandths: a
// disc's may have them when it was typed or stored, a hub's is always calculated in whole cents. The event decides:
//
//   changed: its price, its weight, the disc's cut         rounded twice
//   changed: a size of the cut piece, the chosen material  rounded once
//   double click on: the disc's weight                     the disc's line, rounded twice
//   double click on: a size of disc or hub                 the disc's line, rounded once
//   double click on: the hub's weight or inner diameter    the hub's line, rounded once

/// Material in whole cents, then the cut, then whole cents: round(round(weight x price) + cut).
double lineRoundedTwice(const StockLine& line);

/// Whole cents at the end alone: round(weight x price + cut). Also a rack's bar when its material is chosen.
double lineRoundedOnce(const StockLine& line);

/// A rack's bar when a size, its weight, its price or its cut is changed: not rounded; the mask of its field shows
/// whole cents. The cut is then read from its field, in whole cents, where the choice of a material takes it unrounded.
double barLine(const StockLine& line);

/// The cut (€) in the stored amount of a rack's bar: what is left without the material in whole cents. No column stores
/// the cut itself.
double cutInBarLine(double amount, double weight, double price);

// --- Piece and lot -------------------------------------------------------------------------------------------------

/// The parts of one piece's price (€), in the order in which they are added.
struct PieceParts {
    double material;
    double sawCharge;  ///< the whole charge, or its share
    double labour;
    double subcontracted;
    double sundries;
};

/// The material of a piece of disc and hub (€).
double materialOf(double discAmount, double hubAmount);

/// The price of one piece (€, whole cents).
double piecePrice(const PieceParts& parts);

/// The price of the lot (€, whole cents): that of a piece, as it stands in whole cents or was typed, by the pieces.
double lotPrice(double piece, double units);

/// A piece's share of the saw charge (€, whole cents). The event of the saw charge alone prices the piece with it;
/// every other event adds the whole charge to each piece. Error 11 for no pieces, 6 for no charge either.
double spreadSawCharge(double charge, double units);

}  // namespace velmora::estimate
