#include "velmora/adapters/sqlite/emitters/parameters.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "velmora/adapters/sqlite/emitters/literals.h"

namespace velmora::sqlite {

namespace {

/// Far below the engine's own bound. A statement with more is one of many rows, which does not come again.
constexpr std::size_t mostParameters = 1000;

/// Given::withoutBearing.
bool bears(const sql::Value& value) {
    const auto* const whole = std::get_if<std::int64_t>(&value.raw());
    return value.isNull() || (whole != nullptr && *whole >= -1 && *whole <= 1);
}

}  // namespace

std::optional<std::vector<sql::Value>> valuesOf(const std::vector<Parameter>& parameters,
                                                const std::vector<tsql::Literal>& literals) {
    std::vector<sql::Value> values;
    values.reserve(parameters.size());
    for (const Parameter& parameter : parameters) {
        const tsql::Literal& literal = literals[parameter.literal];
        Emitted given = emittedLiteral(literal.form, literal.text);
        if (parameter.negated) {
            if (!given.type.isNumber()) {
                return std::nullopt;
            }
            given = negated(std::move(given));
        }
        auto value = constantOf(parameter.conversion(std::move(given)));
        if (!value || (parameter.hasNoBearing && bears(*value))) {
            return std::nullopt;
        }
        values.push_back(std::move(*value));
    }
    return values;
}

std::vector<tsql::Literal> fixedLiterals(const std::vector<Parameter>& parameters,
                                         const std::vector<tsql::Literal>& literals) {
    std::vector<bool> isGiven(literals.size());
    for (const Parameter& parameter : parameters) {
        isGiven[parameter.literal] = true;
    }
    std::vector<tsql::Literal> fixed;
    for (std::size_t i = 0; i < literals.size(); ++i) {
        if (!isGiven[i]) {
            fixed.push_back({.form = literals[i].form, .text = literals[i].text});
        }
    }
    return fixed;
}

Emitted Parameters::inPlaceOf(const tsql::Expression& expression, Emitted converted, const Conversion& conversion) {
    const bool negative = expression.form == tsql::Form::negate;
    const auto value = constantOf(converted);
    const auto literal = literalAt((negative ? *expression.operands.front() : expression).place);
    const bool hasNoBearing = given_ == Given::withoutBearing;
    if (!literal || !value || (hasNoBearing && bears(*value)) || taken_.size() == mostParameters) {
        return converted;
    }
    taken_.push_back(
        {.literal = *literal, .negated = negative, .hasNoBearing = hasNoBearing, .conversion = conversion});
    // Without a number: the engine keeps a list of the numbers and goes through it for each. Each part with
    // parameters is written in the order in which it is looked at.
    return {.sql = "?", .type = std::move(converted.type)};
}

std::optional<std::size_t> Parameters::literalAt(std::size_t place) const {
    if (literals_ == nullptr || given_ == Given::none) {
        return std::nullopt;
    }
    const auto found = std::ranges::lower_bound(*literals_, place, {}, &tsql::Literal::place);
    const bool stands = found != literals_->end() && found->place == place;
    return stands ? std::optional(static_cast<std::size_t>(found - literals_->begin())) : std::nullopt;
}

}  // namespace velmora::sqlite
