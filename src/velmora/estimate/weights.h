#pragma once
// The weight of a piece of stock by its article's formula.

#include <string>

#include "velmora/estimate/field_map.h"

namespace velmora::estimate {

/// An operand of the weight: a number, or a field whose text is read only if the formula needs it.
class Operand {
  public:
    Operand(double value) : number_(value), isText_(false) {}
    Operand(const TextBox& box) : text_(box.text()), isText_(true) {}
    double number() const;   ///< by the locale; error 13 when a text is no number
    double leading() const;  ///< Val of its text

  private:
    std::string text_;
    double number_ = 0;
    bool isText_;
};

/// True when an article of this formula is a tube, which has an inner diameter; false for null.
bool isTube(const sql::Value& formula);

/// How an article's weight is calculated from its sizes.
enum class WeightRule {
    none,      ///< an unknown formula or none: 0
    quantity,  ///< by the piece
    plate,     ///< the product of three sides
    round,     ///< of a solid round: the square of its diameter and its length
    tube,
};

class Weights {
  public:
    explicit Weights(const FieldMap& fields) : f_(fields) {}

    /// Kilograms, two decimals. `formula` is the article's (plate 1, 5; round 2, 3, 6; tube 4; by quantity 0), 2 for
    /// all while chkFormulas is off, 1 for a rack; lengths in mm: a thickness or length, b, c the other two sides of a
    /// plate, d outer and e inner diameter; `factor` is the article's. A null or unknown formula, and a text that is
    /// not a number, give 0.
    double FnPeso(const sql::Value& formula, double piezas, const Operand& a, const Operand& b, const Operand& c,
                  const Operand& d, const Operand& e, const sql::Value& factor) const;

    /// The rule that FnPeso applies for the article's formula on the present form.
    WeightRule ruleOf(const sql::Value& formula) const;

    /// The weight of a rack's bar with the sizes Text4(50) to (52), by its material's article.
    double rackWeight() const;

  private:
    const FieldMap& f_;
};

}  // namespace velmora::estimate
