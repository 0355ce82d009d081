#include "velmora/estimate/weights.h"

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {
constexpr int unknownFormula = -1;
}  // namespace

double Operand::number() const {
    return isText_ ? runtime::CDbl(text_) : number_;
}

double Operand::leading() const {
    return runtime::Val(isText_ ? text_ : runtime::CStr(number_));
}

bool isTube(const sql::Value& formula) {
    return !formula.isNull() && (formula.toLong() == 4 || formula.toLong() == 6);
}

WeightRule Weights::ruleOf(const sql::Value& formula) const {
    const int ofArticle = formula.isNull() ? unknownFormula : formula.toLong();
    if (f_.product().shape == data::ProductShape::rack) {
        return WeightRule::plate;
    }
    if (!f_.chkFormulas.checked()) {
        return WeightRule::round;
    }
    switch (ofArticle) {
        case 0:
            return WeightRule::quantity;
        case 1:
        case 5:
            return WeightRule::plate;
        case 2:
        case 3:
        case 6:
            return WeightRule::round;
        case 4:
            return WeightRule::tube;
        default:
            return WeightRule::none;
    }
}

double Weights::FnPeso(const sql::Value& formula, double piezas, const Operand& a, const Operand& b, const Operand& c,
                       const Operand& d, const Operand& e, const sql::Value& factor) const {
    const WeightRule rule = ruleOf(formula);
    double weight = 0;
    runtime::ErrorTrap trap;
    trap([&] {
        switch (rule) {
            case WeightRule::quantity:
                weight = piezas;
                break;
            case WeightRule::plate:
                weight = (piezas * a.number() * b.number() * c.number()) / 1000000 * factor.toDouble();
                break;
            case WeightRule::round:
                weight = piezas * ((d.number() * d.number() * a.number()) / 1000000) * factor.toDouble();
                break;
            case WeightRule::tube: {
                // Kept K-007: the diameters of a tube are read up to the comma (60,5 counts 60). Required as it is; it
                // determines stored weights.
                const double outer = d.leading();
                const double inner = e.leading();
                weight = piezas * (((outer + inner) * (outer - inner) * a.number()) / 1000000) * factor.toDouble();
                break;
            }
            case WeightRule::none:
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
