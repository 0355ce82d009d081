#pragma once
// Rules of dimension: computes the next measure of a sprocket from one or two others. Pure functions; lengths in
// millimetres.

#include <string>

namespace velmora::estimate {

/// The value of π in every formula of the shop.
inline constexpr double shopPi = 3.1416;

/// Above this exterior diameter (mm) a piece is cut as a disc and a hub, up to it as a single round.
inline constexpr double onePieceLimit = 120;

inline constexpr double sawAllowance = 3;        ///< mm added to a width that is sawn
inline constexpr double diameterAllowance = 5;   ///< mm added to a diameter that is turned
inline constexpr double hubWeightAllowance = 2;  ///< mm added to a hub's length for its weight only

/// x rounded up to a multiple of n. Error 11 for n = 0.
double FnMultiplo(double x, int n);

/// Exterior diameter from pitch diameter, teeth and roller diameter: a whole number of millimetres. The roller's factor
/// increases with the teeth, from 0.5 at 6 teeth to 0.7 above 18.
double FnDmexterior(double dp, double z, double rodillo);

/// The factor of the roller in that exterior.
double rollerFactor(double z);

/// Rim width from the chain's inner width: 2, 2.5 or 3 mm less, a whole number.
double FnLlanta(double ac);

/// What that rim is narrower (mm) than the chain.
double rimDeduction(double ac);

/// A diameter or width: the pitch diameter times the factor k, rounded up to a multiple of 5; for k = 0 the whole
/// number nearest to the pitch diameter itself. dp is overwritten with the value before the last rounding.
double scaledToFive(double& dp, double k);

/// Pitch diameter of a chain wheel: pitch / sin(180° / z), with the shop's π, two decimals, half to even. Error 11
/// for z = 0.
double pitchDiameter(double paso, double z);

/// Tooth height over the root: half the difference of the diameters, two decimals, half to even.
double toothHeight(double exterior, double root);

/// The width over the rims of a triple product from that over two rims (`twoRims`) and the gap between them.
double rimsOfTriple(double twoRims, double gap);

/// Pitch and tooth height of a rack from its module; not rounded.
double rackPitch(double module);
double rackToothHeight(double module);

/// The exterior of a smooth pulley: its root diameter, rounded up to a whole millimetre when it has decimals.
double pulleyExterior(double rootDiameter);

/// Whether a text is equal to or before another by character codes.
bool standsAtOrBefore(const std::string& text, const std::string& limit);

/// True when the disc of a piece with this exterior (the text of its field) is sawn from a round of the total width:
/// the texts are compared by character codes, "98" is after "120".
bool sawnFromRound(const std::string& exterior);

/// What is added to the rim (mm) of a disc that is not sawn from a round, by the text of its exterior, likewise.
double plateAllowance(const std::string& exterior);

/// The diameter of a hub's stock: the turned diameter, rounded up to a multiple of 5.
double hubStockDiameter(double hubDiameter);

/// The measures (mm) that the approximate weight of a piece is calculated from.
struct RoughPiece {
    double teeth;
    double exterior;
    double rim;
    double hubDiameter;
    double hubWidth;
    double bore;
    double totalWidth;
    double roller;
};

/// The two halves of the shop's approximate weight: it is `solid` less `removed`.
struct RoughWeight {
    double solid;    ///< rim and hub
    double removed;  ///< bore and tooth gaps
};
RoughWeight roughWeight(const RoughPiece& piece);

/// A list of thicknesses, accessed like a late-bound list object.
class ThicknessList {
  public:
    virtual ~ThicknessList() = default;
    virtual std::string List(int i) const = 0;
    virtual int ListCount() const = 0;
};

/// The first entry of an ascending list that is greater than the thickness plus its allowance (1, 2 or 3 mm by
/// diameter); never the first entry of the list. `grueso` keeps the allowance. Error 13 when the result is beyond the
/// last entry.
double fnCorteGrueso(double diametro, double& grueso, const ThicknessList& lista);

/// The commercial thickness (mm) of plate for a whole rim width: iron and other metals are sold in different steps. 0
/// when the rim reaches the last step.
int commercialThickness(int rim, bool iron);

}  // namespace velmora::estimate
