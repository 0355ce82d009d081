#include "velmora/proposal/tab_stops.h"

#include <array>
#include <initializer_list>

#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

namespace {

using data::ProductType;

bool never(const ProductType& /*type*/) {
    return false;
}
/// The toothing is entered: a gear takes it from its list, a rack from its module.
bool toothingEntered(const ProductType& type) {
    return type.toothing != data::Toothing::gear;
}
bool gapEntered(const ProductType& type) {
    return type.gapTyped;
}
bool hasBore(const ProductType& type) {
    return type.shape != data::ProductShape::rack;
}

/// Leaving the rim calculates the total width and the cuts of a piece whose toothing is entered.
bool rimCalculates(const ProductType& type) {
    return toothingEntered(type) && !type.chainList && hasBore(type);
}

/// Hubs A and B are entered side by side.
bool hubsDiffer(const ProductType& type) {
    return type.hubs == data::Hubs::twoUnlike;
}

struct Rule {
    int field;
    bool (*stops)(const ProductType& type);
};

/// Fields of Text1 that are no stops for some type; all others are.
constexpr std::array measureRules{Rule{.field = measure::pitch, .stops = toothingEntered},
                                  Rule{.field = measure::teeth, .stops = toothingEntered},
                                  Rule{.field = measure::chainWidth, .stops = toothingEntered},
                                  Rule{.field = measure::roller, .stops = toothingEntered},
                                  Rule{.field = measure::pitchDiameter, .stops = never},
                                  Rule{.field = measure::root, .stops = never},
                                  Rule{.field = measure::exterior, .stops = never},
                                  Rule{.field = measure::height, .stops = never},
                                  Rule{.field = measure::rim, .stops = rimCalculates},
                                  Rule{.field = measure::hubWidth, .stops = hubsDiffer},
                                  Rule{.field = measure::hubDiameter, .stops = hubsDiffer},
                                  Rule{.field = measure::totalWidth, .stops = never},
                                  Rule{.field = measure::firstRim, .stops = never},
                                  Rule{.field = measure::gap, .stops = gapEntered},
                                  Rule{.field = measure::keyway, .stops = hasBore},
                                  Rule{.field = measure::setScrews, .stops = hasBore}};

constexpr std::array calculatedSizes{cut::discWidth,    cut::discDiameter, cut::hubDiameter, cut::hubLength,
                                     cut::discWeight,   cut::hubWeight,    cut::barLength,   cut::barWidth,
                                     cut::barThickness, cut::barWeight};

/// Chosen C-011: leaving number, dates or order would apply their masks.
constexpr std::array identity{money::proposal, money::created, money::workOrder, money::accepted};

constexpr std::array calculatedAmounts{money::material, money::piece,     money::lot,     money::approximateWeight,
                                       money::discCost, money::discPrice, money::discCut, money::discAmount,
                                       money::hubCost,  money::hubPrice,  money::hubCut,  money::hubAmount,
                                       money::barCost,  money::barPrice,  money::barCut,  money::barAmount};

}  // namespace

// Chosen C-353: what the program calculates or looks up is no tab stop. Passing through such a field changes no stored
// value, so that none is lost with it.
void TabStops::followType() {
    const ProductType& type = f_.product();
    for (const Rule& rule : measureRules) {
        f_.Text1(rule.field).setTabStop(rule.stops(type));
    }
    for (screen::Control* ofBore : std::initializer_list<screen::Control*>{&f_.cboHerramienta, &f_.chkAcopla}) {
        ofBore->setTabStop(hasBore(type));
    }
    for (const int size : calculatedSizes) {
        f_.Text4(size).setTabStop(false);
    }
    for (const int field : identity) {
        f_.txtPesu(field).setTabStop(false);
    }
    for (const int amount : calculatedAmounts) {
        f_.txtPesu(amount).setTabStop(false);
    }
    followCustomerName();
}

// Chosen C-354: the name that belongs to a customer's code is passed over; a customer without one has it entered.
void TabStops::followCustomerName() {
    f_.txtPesu(money::customerName).setTabStop(f_.txtPesu(money::customerName).text().empty());
}

}  // namespace velmora::proposal
