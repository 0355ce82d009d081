#pragma once
// The rack: a toothed bar, measured by its module and priced as a bar of its own material.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/totals.h"

namespace velmora::estimate {

class Rack {
  public:
    Rack(FieldMap& fields, Totals& totals, screen::Screen& screen) : f_(fields), totals_(totals), screen_(screen) {}

    /// When the focus leaves a field of the rack (measure::rackModule to rackWidth): tells of a height that is not
    /// above the tooth height, else calculates what depends on the field. Error 13 when a measure it reads is no
    /// number.
    void Text1_LostFocus(int Index);

    /// Computes body height, sketch and bar sizes from the fields. Error 13 for a height that is not a number.
    void msCalcularCremallera();

    /// After the choice of a material: its prices, the cut and the amount of the bar. Error 13 when a size is no
    /// number.
    void rsMatCre_MoveComplete();

  private:
    FieldMap& f_;
    Totals& totals_;
    screen::Screen& screen_;
};

}  // namespace velmora::estimate
