#pragma once
// Nodes of the tree of an expression.

#include <string>
#include <utility>

#include "velmora/adapters/tsql/syntax_tree.h"

namespace velmora::tsql {

ExpressionPtr makeExpression(Form form);

/// The node with its height above its operands. Errors: provider::syntax when it is too deep.
ExpressionPtr checked(ExpressionPtr expression);

template <typename... Operands>
ExpressionPtr makeExpression(Form form, std::string text, Operands... operands) {
    ExpressionPtr expression = makeExpression(form);
    expression->text = std::move(text);
    (expression->operands.push_back(std::move(operands)), ...);
    return checked(std::move(expression));
}

/// Errors: provider::syntax for a condition.
void requireValue(const Expression& expression);
/// Errors: provider::syntax for a value.
void requireCondition(const Expression& expression);

}  // namespace velmora::tsql
