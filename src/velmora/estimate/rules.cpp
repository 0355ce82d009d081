#include "velmora/estimate/rules.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::estimate {

using runtime::CDbl;
using runtime::CStr;
using runtime::divide;
using runtime::Int;
using runtime::Round;

namespace {

constexpr double rackToothHeightFactor = 2.25;  ///< of the basic rack, in modules

/// A step of a table: valid up to and including `upTo`.
struct Step {
    double upTo;
    double value;
};

constexpr double unlimited = std::numeric_limits<double>::infinity();

double stepFor(std::span<const Step> table, double x) {
    for (const Step& step : table) {
        if (x <= step.upTo) {
            return step.value;
        }
    }
    return table.back().value;
}

constexpr std::array rollerFactorByTeeth{
    Step{.upTo = 6, .value = 0.5},   Step{.upTo = 8, .value = 0.55},        Step{.upTo = 12, .value = 0.6},
    Step{.upTo = 18, .value = 0.65}, Step{.upTo = unlimited, .value = 0.7},
};

constexpr std::array deductionByChainWidth{
    Step{.upTo = 20, .value = 2},
    Step{.upTo = 30, .value = 2.5},
    Step{.upTo = unlimited, .value = 3},
};

constexpr std::array allowanceByDiameter{
    Step{.upTo = 200, .value = 1},
    Step{.upTo = 400, .value = 2},
    Step{.upTo = unlimited, .value = 3},
};

constexpr std::array otherMetalSteps{6,  8,  10, 12, 14, 15, 16, 18, 20, 22, 25, 28,
                                     30, 32, 35, 38, 40, 42, 45, 50, 55, 60, 70, 80};
constexpr std::array ironSteps{6, 8, 10, 12, 15, 16, 18, 20, 22, 25, 30, 35, 40, 45, 50, 55, 60};

}  // namespace

double FnMultiplo(double x, int n) {
    const double q = divide(x, n);
    // Kept K-001: the test divides by 5 whatever the step. All callers pass 5; changing it changes stored sizes.
    if (Int(x / 5) == q) {
        return Round(x);
    }
    return Round((Int(divide(x, n)) + 1) * n);
}

double rollerFactor(double z) {
    return stepFor(rollerFactorByTeeth, z);
}

double FnDmexterior(double dp, double z, double rodillo) {
    return Round(rollerFactor(z) * rodillo + dp);
}

double rimDeduction(double ac) {
    return stepFor(deductionByChainWidth, ac);
}

double FnLlanta(double ac) {
    return Round(ac - rimDeduction(ac));
}

double scaledToFive(double& dp, double k) {
    if (k == 0) {
        return Round(dp);
    }
    dp = Round(k * dp);
    if (Int(dp / 5) != dp / 5) {
        dp = (Int(dp / 5) + 1) * 5;
    }
    return Round(dp);
}

double pitchDiameter(double paso, double z) {
    // Kept K-002: 3.1416 is used for π and the angle goes through degrees in this order. Required as it is; an exact π
    // changes the second decimal of stored diameters.
    return Round(divide(paso, std::sin((divide(180, z) * shopPi) / 180)), 2);
}

double toothHeight(double exterior, double root) {
    return Round((exterior - root) / 2, 2);
}

double rimsOfTriple(double twoRims, double gap) {
    return ((twoRims - gap) / 2) * 3 + gap * 2;
}

double rackPitch(double module) {
    return module * shopPi;
}

double rackToothHeight(double module) {
    return module * rackToothHeightFactor;
}

double pulleyExterior(double rootDiameter) {
    // Kept K-003: the decimals are the last two characters of the hundredths as text (6137 gives 37, 610 gives 10), and
    // the last rounding is half to even. Required as it is; it determines stored diameters.
    const double hundredths = Round(rootDiameter, 2) * 100;
    const bool hasDecimals = CDbl(runtime::Right(CStr(hundredths), 2)) > 0;
    return Round(hasDecimals ? rootDiameter + 0.5 : rootDiameter);
}

bool standsAtOrBefore(const std::string& text, const std::string& limit) {
    return text <= limit;
}

bool sawnFromRound(const std::string& exterior) {
    return standsAtOrBefore(exterior, "120");
}

double plateAllowance(const std::string& exterior) {
    return standsAtOrBefore(exterior, "250") ? 1 : standsAtOrBefore(exterior, "500") ? 2 : 3;
}

double hubStockDiameter(double hubDiameter) {
    return FnMultiplo(hubDiameter + diameterAllowance, 5);
}

RoughWeight roughWeight(const RoughPiece& piece) {
    return {.solid = piece.rim * piece.exterior + piece.hubDiameter * piece.hubWidth,
            .removed = piece.rim * piece.roller * piece.teeth + piece.totalWidth * piece.bore};
}

double fnCorteGrueso(double diametro, double& grueso, const ThicknessList& lista) {
    grueso += stepFor(allowanceByDiameter, diametro);
    std::int16_t i = 0;
    while (CDbl(lista.List(i)) <= grueso || i > lista.ListCount()) {
        if (i == std::numeric_limits<std::int16_t>::max()) {
            runtime::raise(runtime::overflow);
        }
        ++i;
    }
    // Kept K-004: the first entry of the list is never taken, even when it is large enough. Required as it is; it
    // determines stored thicknesses.
    const int chosen = i > lista.ListCount() ? lista.ListCount() : (i == 0 ? 1 : i);
    return CDbl(lista.List(chosen));
}

int commercialThickness(int rim, bool iron) {
    const std::span<const int> steps = iron ? std::span<const int>(ironSteps) : std::span<const int>(otherMetalSteps);
    for (const int step : steps) {
        if (step > rim) {
            return step;
        }
    }
    return 0;
}

}  // namespace velmora::estimate
