#pragma once
// Computes the measures of a sprocket from its toothing: recalculation on leaving a field of Text1, by product type.

#include <functional>

#include "velmora/estimate/dimension_constants.h"
#include "velmora/estimate/disc_and_hub_costing.h"
#include "velmora/estimate/double_sprockets.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/estimate/rack.h"
#include "velmora/estimate/totals.h"

namespace velmora::estimate {

class SprocketGeometry {
  public:
    struct Collaborators {
        DimensionConstants& constants;
        DiscAndHubCosting& costing;
        MaterialLists& materials;
        DoubleSprockets& doubles;
        Rack& rack;
        Totals& totals;
    };

    SprocketGeometry(FieldMap& fields, Collaborators peers, screen::Screen& screen, session::KestraUtil& util)
        : f_(fields), peers_(peers), screen_(screen), oUtil_(util) {}

    /// Refreshes the list of similar proposals: runs after the roller's field was left, for every type.
    std::function<void()> onToothingEntered;

    /// Computes all diameters and widths from pitch, teeth and roller; does nothing without teeth. Errors: 13 for a
    /// measure that is not a number; the database's.
    void msRecalcularMedidas();

    void Text1_LostFocus(int Index);
    void Text1_Change(int Index);
    void Text1_KeyPress(int Index, screen::KeyPress& key);
    void Text3_Change(int Index);

  private:
    void leavePlain(int Index);
    void leaveWithChainList(int Index);
    void leaveTeeth();
    void leaveRoller();
    double writeTotalWidth(int Index);
    void tail(double total);
    void writeHubAndTotalWidth();
    void writeRimCaption();
    void writeHubWidth();

    FieldMap& f_;
    Collaborators peers_;
    screen::Screen& screen_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::estimate
