#pragma once
// What of the main form is seen, can be typed in and how it is captioned, by product type.

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

class Presentation {
  public:
    explicit Presentation(FieldMap& fields) : f_(fields) {}

    /// Sets the screen for the chosen type, then the widths that follow from it. Error 13 for a width that is no
    /// number.
    void cboTipoPre_Click();

    /// The rest of a gear's presentation, once it has been stored and read back.
    void msPresentarEngranaje();

    void msVerCremallera(bool b);
    void msVerTriple(bool b);
    void msVerDoble(bool b);
    void msVerCubo(bool b);

    /// A gear's module in place of chain width and roller.
    void showModule();

  private:
    void reset();
    // By the shape of the type.
    void presentType(const data::ProductType& type);
    void presentOneRim(const data::ProductType& type);
    void presentTwoRims(const data::ProductType& type);
    void presentThreeRims(const data::ProductType& type);
    void presentVariable(const data::ProductType& type);
    void coverHubOfThreeRims();

    void writeWidths(data::TotalWidth follows);

    FieldMap& f_;
};

}  // namespace velmora::estimate
