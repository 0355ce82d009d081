#include "velmora/estimate/rack.h"

#include <algorithm>
#include <array>

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::Format;

namespace {

constexpr const char* measureMask = "#,##0.00";
constexpr double toothHeightFactor = 2.25;  ///< tooth height of the basic rack, in modules

/// A field of the sketch and the field of Text1 that it repeats.
struct Repeated {
    int sketch;
    int field;
};

constexpr std::array sketchFields{Repeated{0, 21}, Repeated{1, 22}, Repeated{2, 23},
                                  Repeated{3, 24}, Repeated{4, 22}, Repeated{5, 25}};

/// Height, length and width of the bar.
constexpr std::array barSizes{22, 24, 25};

}  // namespace

void Rack::Text1_LostFocus(int Index) {
    if (Index == 19) {
        const double module = number(f_.Text1(19));
        f_.Text1(20).setText(Format(module * shopPi, measureMask));
        f_.Text1(21).setText(Format(module * toothHeightFactor, measureMask));
    } else if (Index == 22 && !(number(f_.Text1(21)) < number(f_.Text1(22)))) {
        screen_.show(
            {.text = "Atención, el valor de H no puede ser igual o inferior al de h", .icon = screen::Icon::critical});
        return;
    }
    msCalcularCremallera();
    // Differs D-010: a size that is left has its cut worked out anew, as its weight; it would be priced with the cut of
    // the size before.
    if (std::ranges::find(barSizes, Index) != barSizes.end()) {
        totals_.writeRackCut();
    }
}

void Rack::msCalcularCremallera() {
    for (const int computed : {20, 21, 23}) {
        f_.Text1(computed).setEnabled(false);
    }
    f_.Text1(23).setText(Format(number(f_.Text1(22)) - number(f_.Text1(21)), measureMask));
    for (const Repeated& repeated : sketchFields) {
        f_.txtCre(repeated.sketch).setText(f_.Text1(repeated.field).text());
    }
    f_.Text4(50).setText(f_.txtCre(5).text());
    f_.Text4(51).setText(f_.txtCre(3).text());
    f_.Text4(52).setText(f_.txtCre(4).text());
}

void Rack::rsMatCre_MoveComplete() {
    const sql::Recordset& material = *f_.rsMatCre;
    if (!material.hasRows()) {
        return;
    }
    put(f_.txtPesu(54), material["art_pco"]);
    put(f_.txtPesu(56), material["art_pve"]);
    const double cut = totals_.rackCut();
    f_.txtPesu(55).setText(Format(cut, amountMask));
    f_.txtPesu(57).setText(Format(round2(number(f_.Text4(53)) * number(f_.txtPesu(56)) + cut), amountMask));
}

}  // namespace velmora::estimate
