#include "velmora/estimate/weights.h"

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

double Operand::number() const {
    return isText_ ? runtime::CDbl(text_) : number_;
}

double Operand::leading() const {
    return runtime::Val(isText_ ? text_ : runtime::CStr(number_));
}

bool isTube(const sql::Value& formula) {
    return !formula.isNull() && (formula.toLong() == 4 || formula.toLong() == 6);
}

double Weights::FnPeso(const sql::Value& formula, double piezas, const Operand& a, const Operand& b, const Operand& c,
                       const Operand& d, const Operand& e, const sql::Value& factor) const {
    constexpr int unknownFormula = -1;
    constexpr int solidRound = 2;
    constexpr int plate = 1;
    int applied = formula.isNull() ? unknownFormula : formula.toLong();
    if (!f_.chkFormulas.checked()) {
        applied = solidRound;
    }
    if (f_.product().shape == data::ProductShape::rack) {
        applied = plate;
    }
    double weight = 0;
    runtime::ErrorTrap trap;
    trap([&] {
        switch (applied) {
            case 0:
                weight = piezas;
                break;
            case 1:
            case 5:
                weight = (piezas * a.number() * b.number() * c.number()) / 1000000 * factor.toDouble();
                break;
            case 2:
            case 3:
            case 6:
                weight = piezas * ((d.number() * d.number() * a.number()) / 1000000) * factor.toDouble();
                break;
            case 4: {
                // Kept K-007: the diameters of a tube are read up to the comma (60,5 counts 60). Required as it is; it
                // determines stored weights.
                const double outer = d.leading();
                const double inner = e.leading();
                weight = piezas * (((outer + inner) * (outer - inner) * a.number()) / 1000000) * factor.toDouble();
                break;
            }
            default:
                break;
        }
    });
    return round2(weight);
}

double Weights::rackWeight() const {
    const sql::Recordset& article = *f_.rsMatCre;
    return FnPeso(article["art_for"], 1, f_.Text4(cut::barWidth), f_.Text4(cut::barLength), f_.Text4(cut::barThickness),
                  0.0, 0.0, article["art_fac"]);
}

}  // namespace velmora::estimate
