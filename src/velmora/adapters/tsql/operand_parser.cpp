#include "velmora/adapters/tsql/operand_parser.h"

#include <algorithm>
#include <initializer_list>

#include "velmora/adapters/tsql/expression_builder.h"
#include "velmora/adapters/tsql/expression_parser.h"
#include "velmora/adapters/tsql/select_parser.h"
#include "velmora/adapters/tsql/type_parser.h"

namespace velmora::tsql {

namespace {

class OperandParser {
  public:
    explicit OperandParser(TokenCursor& cursor) : cursor_(cursor) {}

    ExpressionPtr additive() {
        return leftToRight({"+", "-"}, [&] { return leftToRight({"*", "/", "%"}, [&] { return unary(); }); });
    }

  private:
    template <typename Next>
    ExpressionPtr leftToRight(std::initializer_list<std::string_view> operators, Next next) {
        ExpressionPtr left = next();
        while (cursor_.current().kind == TokenKind::symbol &&
               std::find(operators.begin(), operators.end(), cursor_.current().written) != operators.end()) {
            requireValue(*left);
            std::string operation(cursor_.take().written);
            ExpressionPtr right = next();
            requireValue(*right);
            left = makeExpression(Form::arithmetic, std::move(operation), std::move(left), std::move(right));
        }
        return left;
    }

    ExpressionPtr unary() {
        if (cursor_.acceptSymbol("-")) {
            const Nesting nesting(cursor_);
            ExpressionPtr operand = unary();
            requireValue(*operand);
            return makeExpression(Form::negate, {}, std::move(operand));
        }
        if (cursor_.acceptSymbol("+")) {
            const Nesting nesting(cursor_);
            ExpressionPtr operand = unary();
            requireValue(*operand);
            return operand;
        }
        ExpressionPtr result = primary();
        if (cursor_.word() == "COLLATE") {
            cursor_.advance();
            parseCollation(cursor_);
        }
        return result;
    }

    ExpressionPtr literal(Form form) {
        const Token& token = cursor_.take();
        ExpressionPtr result = makeExpression(form);
        result->place = cursor_.placeOf(token);
        result->text = form == Form::text || form == Form::binary ? token.value : std::string(token.written);
        return result;
    }

    ExpressionPtr primary() {
        switch (cursor_.current().kind) {
            case TokenKind::whole:
                return literal(Form::whole);
            case TokenKind::decimal:
                return literal(Form::decimal);
            case TokenKind::real:
                return literal(Form::real);
            case TokenKind::text:
                return literal(Form::text);
            case TokenKind::binary:
                return literal(Form::binary);
            default:
                break;
        }
        if (cursor_.acceptSymbol("(")) {
            return parenthesized();
        }
        if (cursor_.accept("NULL")) {
            ExpressionPtr result = makeExpression(Form::null);
            result->place = cursor_.placeOf(cursor_.previous());
            return result;
        }
        if (cursor_.accept("CASE")) {
            return choice();
        }
        if (cursor_.isSymbol("(", 1) && cursor_.current().kind == TokenKind::word) {
            return call();
        }
        return column();
    }

    ExpressionPtr parenthesized() {
        if (cursor_.word() == "SELECT") {
            ExpressionPtr result = makeExpression(Form::scalar);
            result->select = parseSelect(cursor_);
            cursor_.expectSymbol(")");
            return result;
        }
        ExpressionPtr result = parseExpression(cursor_);
        cursor_.expectSymbol(")");
        return result;
    }

    ExpressionPtr choice() {
        const Nesting nesting(cursor_);
        ExpressionPtr result = makeExpression(Form::choice);
        if (cursor_.word() != "WHEN") {
            result->simple = true;
            result->operands.push_back(parseValue(cursor_));
        }
        do {
            cursor_.expect("WHEN");
            result->operands.push_back(result->simple ? parseValue(cursor_) : parseCondition(cursor_));
            cursor_.expect("THEN");
            result->operands.push_back(parseValue(cursor_));
        } while (cursor_.word() == "WHEN");
        if (cursor_.accept("ELSE")) {
            result->hasElse = true;
            result->operands.push_back(parseValue(cursor_));
        }
        cursor_.expect("END");
        return checked(std::move(result));
    }

    ExpressionPtr call() {
        const Nesting nesting(cursor_);
        const std::string function(cursor_.word());
        cursor_.advance(2);
        if (function == "CAST") {
            ExpressionPtr result = makeExpression(Form::cast, {}, parseValue(cursor_));
            cursor_.expect("AS");
            result->type = parseCastType(cursor_);
            cursor_.expectSymbol(")");
            return result;
        }
        if (function == "CONVERT") {
            ExpressionPtr result = makeExpression(Form::convert);
            result->type = parseCastType(cursor_);
            cursor_.expectSymbol(",");
            result->operands.push_back(parseValue(cursor_));
            if (cursor_.acceptSymbol(",")) {
                result->operands.push_back(parseValue(cursor_));
            }
            cursor_.expectSymbol(")");
            return checked(std::move(result));
        }
        ExpressionPtr result = makeExpression(Form::function);
        result->text = function;
        if (cursor_.isSymbol("*")) {
            cursor_.advance();
            result->operands.push_back(makeExpression(Form::star));
        } else if (!cursor_.isSymbol(")")) {
            result->distinct = cursor_.accept("DISTINCT");
            do {
                result->operands.push_back(parseValue(cursor_));
            } while (cursor_.acceptSymbol(","));
        }
        cursor_.expectSymbol(")");
        if (cursor_.word() == "OVER") {
            throwUnknown("OVER");
        }
        return checked(std::move(result));
    }

    ExpressionPtr column() {
        ExpressionPtr result = makeExpression(Form::column);
        result->text = cursor_.name("una expresión");
        for (int part = 0; cursor_.acceptSymbol("."); ++part) {
            if (part == 3) {
                throwUnknown("un nombre de columna con servidor");
            }
            result->qualifier = std::move(result->text);
            result->text = cursor_.name("el nombre de una columna");
        }
        return result;
    }

    TokenCursor& cursor_;
};

}  // namespace

ExpressionPtr parseOperand(TokenCursor& cursor) {
    return OperandParser(cursor).additive();
}

}  // namespace velmora::tsql
