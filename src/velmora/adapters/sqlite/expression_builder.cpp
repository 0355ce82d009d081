#include "velmora/adapters/sqlite/expression_builder.h"

#include <algorithm>

#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/token_cursor.h"

namespace velmora::sqlite {

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

}  // namespace velmora::sqlite
