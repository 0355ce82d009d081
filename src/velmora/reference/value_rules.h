#pragma once
// Computations for the tables of values, in millimetres, on plain numbers.

namespace velmora::reference {

/// Pitch diameter of a chain wheel for the table of doubles: Paso ÷ sin((180 ÷ Z) × 3.1416 ÷ 180), cut to two decimals
/// through its text; 0 when either is 0. Error 6 when the result, or its text, is too large.
double FnDpCadena(double Z, double Paso);

/// The measures of a spur gear computed from module and teeth, each to two decimals: tip and root diameter from the
/// rounded pitch diameter.
struct GearMeasures {
    double paso;
    double dp;
    double de;
    double di;
};
GearMeasures gearMeasures(double module, double teeth);

}  // namespace velmora::reference
