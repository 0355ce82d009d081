#pragma once
// Hub diameter and total width as multiples of the pitch diameter, by the ranges stored in Calculos.

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

class DimensionConstants {
  public:
    DimensionConstants(FieldMap& fields, session::Session& session) : f_(fields), session_(session) {}

    /// Hub diameter (mm) from the pitch diameter, which is overwritten with the value before the last rounding. Writes
    /// the factor to lblFormulaDM. A missing range counts as factor 1. Errors: the database's; 13 for a stored constant
    /// that is not a number.
    double FnDmCubo(double& dp);

    /// Total width (mm), likewise, with lblFormulaAncho.
    double FnAnchoTotal(double& dp);

    /// The factors alone, by the stored ranges, of which the first that holds the pitch diameter (mm) counts; 1 without
    /// one. Nothing is written. Errors: as above.
    double hubFactor(double dp) const;
    double totalWidthFactor(double dp) const;

  private:
    double factor(const char* statement, double dp) const;

    FieldMap& f_;
    session::Session& session_;
};

}  // namespace velmora::estimate
