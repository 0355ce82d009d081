#pragma once
// The literals of a statement that the engine is given beside it: statements that differ in these alone are prepared
// once.

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "velmora/adapters/sqlite/emitters/emitted.h"
#include "velmora/adapters/tsql/statement_shape.h"
#include "velmora/platform/sql/value.h"

namespace velmora::sqlite {

/// What a literal becomes where it is stored or compared. Errors: as the translation raises them.
using Conversion = std::function<Emitted(Emitted)>;

/// A literal that is given with each run of a statement.
struct Parameter {
    std::size_t literal = 0;  ///< among those of the shape
    bool negated = false;
    bool hasNoBearing = false;  ///< Given::withoutBearing
    Conversion conversion;
};

/// The values of a statement's parameters, from those of its literals. Nothing when one of them is not converted to a
/// value: such a statement has to be translated with its literals. Errors: those of the conversions.
std::optional<std::vector<sql::Value>> valuesOf(const std::vector<Parameter>& parameters,
                                                const std::vector<tsql::Literal>& literals);

/// The literals that are no parameters, as they are told apart.
std::vector<tsql::Literal> fixedLiterals(const std::vector<Parameter>& parameters,
                                         const std::vector<tsql::Literal>& literals);

/// Which literals of a part of a statement may become parameters.
enum class Given {
    none,  ///< where a part may be written twice, in another order or not at all, or a literal may name a column
    all,
    /// Of a set's condition those by whose value the engine does not choose how it reads: with a column that is
    /// compared to -1, 0 or 1 it counts on more rows than with another.
    withoutBearing,
};

/// Finds, while a statement is translated, which of its literals are parameters.
class Parameters {
  public:
    /// Of a statement that is run as it stands.
    Parameters() = default;
    explicit Parameters(const tsql::Shape& shape) : literals_(&shape.literals) {}

    /// `converted`, or a parameter in its place when the expression is a literal, perhaps with a minus.
    Emitted inPlaceOf(const tsql::Expression& expression, Emitted converted, const Conversion& conversion);

    std::vector<Parameter> take() { return std::move(taken_); }

    /// A part of the statement, while it is looked at.
    class Part {
      public:
        Part(Parameters& parameters, Given given)
            : parameters_(parameters), before_(std::exchange(parameters.given_, given)) {}
        ~Part() { parameters_.given_ = before_; }
        Part(const Part&) = delete;
        Part& operator=(const Part&) = delete;

      private:
        Parameters& parameters_;
        Given before_;
    };

  private:
    std::optional<std::size_t> literalAt(std::size_t place) const;

    const std::vector<tsql::Literal>* literals_ = nullptr;
    Given given_ = Given::all;
    std::vector<Parameter> taken_;
};

}  // namespace velmora::sqlite
