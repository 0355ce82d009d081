#include "velmora/adapters/tsql/expression_builder.h"

#include <algorithm>

#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

ExpressionPtr makeExpression(Form form) {
    auto expression = std::make_unique<Expression>();
    expression->form = form;
    return expression;
}

ExpressionPtr checked(ExpressionPtr expression) {
    for (const ExpressionPtr& operand : expression->operands) {
        expression->height = std::max(expression->height, operand->height + 1);
    }
    if (expression->height > deepestNesting) {
        throwTooDeep();
    }
    return expression;
}

void requireValue(const Expression& expression) {
    if (expression.isCondition()) {
        throwSyntax("Se esperaba un valor y hay una condición");
    }
}

void requireCondition(const Expression& expression) {
    if (!expression.isCondition()) {
        throwSyntax("Se esperaba una condición y hay un valor");
    }
}

}  // namespace velmora::tsql
