#pragma once
// The calculated figures of the main form, one row for each field and kind of product, with the ways in which the form
// may have come to the value. For explanations.cpp.

#include <functional>
#include <string>
#include <vector>

#include "velmora/estimate/explanation/derivation.h"
#include "velmora/estimate/explanation/explanation.h"
#include "velmora/estimate/explanation/ground.h"
#include "velmora/estimate/stored_fields.h"

namespace velmora::estimate::explaining {

struct Figure {
    TextField field;
    Topic topic;
    std::string title;
    std::string unit;
    bool (*holdsFor)(const data::ProductType&);  ///< for any type, one row of a field at most
    std::string rule;                            ///< told when there is no derivation
    /// The derivations by which the form calculates the value, the usual one first; which of them was the last depends
    /// on the event. Errors: 13 for an input that is no number, those of the database.
    std::function<std::vector<Derivation>(Ground&)> derive;
};

using Figures = std::vector<Figure>;

void addWheelMeasures(Figures& figures);
void addChainMeasures(Figures& figures);
void addGearMeasures(Figures& figures);
void addRackMeasures(Figures& figures);
void addStockSizes(Figures& figures);
void addWeights(Figures& figures);
void addCuts(Figures& figures);
void addMaterialLines(Figures& figures);
void addPriceFigures(Figures& figures);

}  // namespace velmora::estimate::explaining
