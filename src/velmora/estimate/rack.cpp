#include "velmora/estimate/rack.h"

#include <algorithm>
#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/estimate/price.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::Format;

namespace {

constexpr const char* measureMask = "#,##0.00";

/// A field of the sketch and the field of Text1 that it repeats.
struct Repeated {
    int sketch;
    int field;
};

constexpr std::array sketchFields{Repeated{rackSketch::toothHeight, measure::rackToothHeight},
                                  Repeated{rackSketch::height, measure::rackHeight},
                                  Repeated{rackSketch::body, measure::rackBody},
                                  Repeated{rackSketch::length, measure::rackLength},
                                  Repeated{rackSketch::heightAtTheEnd, measure::rackHeight},
                                  Repeated{rackSketch::width, measure::rackWidth}};

/// Height, length and width of the bar.
constexpr std::array barSizes{measure::rackHeight, measure::rackLength, measure::rackWidth};

}  // namespace

void Rack::Text1_LostFocus(int Index) {
    if (Index == measure::rackModule) {
        const double module = number(f_.Text1(measure::rackModule));
        f_.Text1(measure::rackPitch).setText(Format(rackPitch(module), measureMask));
        f_.Text1(measure::rackToothHeight).setText(Format(rackToothHeight(module), measureMask));
    } else if (Index == measure::rackHeight &&
               !(number(f_.Text1(measure::rackToothHeight)) < number(f_.Text1(measure::rackHeight)))) {
        screen_.show(
            {.text = "Atención, el valor de H no puede ser igual o inferior al de h", .icon = screen::Icon::critical});
        return;
    }
    msCalcularCremallera();
    // Differs D-010: leaving a size recalculates the cut, as it does the weight; otherwise the bar would be priced with
    // the cut of the previous size.
    if (std::ranges::find(barSizes, Index) != barSizes.end()) {
        totals_.writeRackCut();
    }
}

void Rack::msCalcularCremallera() {
    for (const int computed : {measure::rackPitch, measure::rackToothHeight, measure::rackBody}) {
        f_.Text1(computed).setEnabled(false);
    }
    f_.Text1(measure::rackBody)
        .setText(
            Format(number(f_.Text1(measure::rackHeight)) - number(f_.Text1(measure::rackToothHeight)), measureMask));
    for (const Repeated& repeated : sketchFields) {
        f_.txtCre(repeated.sketch).setText(f_.Text1(repeated.field).text());
    }
    f_.Text4(cut::barLength).setText(f_.txtCre(rackSketch::width).text());
    f_.Text4(cut::barWidth).setText(f_.txtCre(rackSketch::length).text());
    f_.Text4(cut::barThickness).setText(f_.txtCre(rackSketch::heightAtTheEnd).text());
}

void Rack::rsMatCre_MoveComplete() {
    const sql::Recordset& material = *f_.rsMatCre;
    if (!material.hasRows()) {
        return;
    }
    put(f_.txtPesu(money::barCost), material["art_pco"]);
    put(f_.txtPesu(money::barPrice), material["art_pve"]);
    const double cut = totals_.rackCut();
    f_.txtPesu(money::barCut).setText(Format(cut, amountMask));
    f_.txtPesu(money::barAmount)
        .setText(Format(
            lineRoundedOnce(
                {.weight = number(f_.Text4(cut::barWeight)), .price = number(f_.txtPesu(money::barPrice)), .cut = cut}),
            amountMask));
}

}  // namespace velmora::estimate
