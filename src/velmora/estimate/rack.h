#pragma once
// The rack: a bar with teeth, measured from its module and priced from a bar of its own material.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/totals.h"

namespace velmora::estimate {

class Rack {
  public:
    Rack(FieldMap& fields, Totals& totals, screen::Screen& screen) : f_(fields), totals_(totals), screen_(screen) {}

    void Text1_LostFocus(int Index);

    /// Body height, the sketch and the bar's sizes from the fields. Error 13 for a height that is no number.
    void msCalcularCremallera();

    void rsMatCre_MoveComplete();

  private:
    FieldMap& f_;
    Totals& totals_;
    screen::Screen& screen_;
};

}  // namespace velmora::estimate
