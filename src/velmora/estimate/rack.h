#pragma once
// The rack: a bar with teeth, measured from its module and priced from a bar of its own material.

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/weights.h"

namespace velmora::estimate {

class Rack {
  public:
    Rack(FieldMap& fields, CutPrices& cutPrices, screen::Screen& screen)
        : f_(fields), cutPrices_(cutPrices), screen_(screen) {}

    void Text1_LostFocus(int Index);

    /// Body height, the sketch and the bar's sizes from the fields. Error 13 for a height that is no number.
    void msCalcularCremallera();

    void rsMatCre_MoveComplete();

  private:
    FieldMap& f_;
    CutPrices& cutPrices_;
    screen::Screen& screen_;
};

}  // namespace velmora::estimate
