#pragma once
// Visibility, enabling and captions of the main form's fields by product type.

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

class Presentation {
  public:
    explicit Presentation(FieldMap& fields) : f_(fields) {}

    /// Sets up the form for the chosen type, then computes the widths that follow from it. Error 13 for a width that is
    /// not a number.
    void cboTipoPre_Click();

    /// The rest of a gear's presentation, applied when it has been stored and loaded.
    void msPresentarEngranaje();

    void msVerCremallera(bool b);
    void msVerTriple(bool b);
    void msVerDoble(bool b);
    void msVerCubo(bool b);

    /// Shows a gear's module in place of chain width and roller.
    void showModule();

  private:
    void reset();
    // According to the shape of the type.
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
