#include "velmora/adapters/tsql/expression_parser.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/tsql/expression_builder.h"
#include "velmora/adapters/tsql/operand_parser.h"
#include "velmora/adapters/tsql/select_parser.h"

namespace velmora::tsql {

namespace {

class ExpressionParser {
  public:
    explicit ExpressionParser(TokenCursor& cursor) : cursor_(cursor) {}

    ExpressionPtr expression() {
        const Nesting nesting(cursor_);
        return chain("OR", Form::either, [&] { return chain("AND", Form::both, [&] { return negation(); }); });
    }

  private:
    template <typename Next>
    ExpressionPtr chain(std::string_view keyword, Form form, Next next) {
        ExpressionPtr first = next();
        if (cursor_.word() != keyword) {
            return first;
        }
        requireCondition(*first);
        ExpressionPtr all = makeExpression(form);
        all->operands.push_back(std::move(first));
        while (cursor_.accept(keyword)) {
            all->operands.push_back(next());
            requireCondition(*all->operands.back());
        }
        return checked(std::move(all));
    }

    ExpressionPtr negation() {
        if (!cursor_.accept("NOT")) {
            return predicate();
        }
        const Nesting nesting(cursor_);
        ExpressionPtr operand = negation();
        requireCondition(*operand);
        return makeExpression(Form::no, {}, std::move(operand));
    }

    ExpressionPtr predicate() {
        if (cursor_.word() == "EXISTS") {
            cursor_.advance();
            cursor_.expectSymbol("(");
            ExpressionPtr result = makeExpression(Form::exists);
            result->select = parseSelect(cursor_);
            cursor_.expectSymbol(")");
            return result;
        }
        ExpressionPtr left = parseOperand(cursor_);
        static constexpr auto comparisons = std::to_array<std::string_view>({"=", "<", ">", "<=", ">=", "<>", "!="});
        if (cursor_.current().kind == TokenKind::symbol &&
            std::find(comparisons.begin(), comparisons.end(), cursor_.current().written) != comparisons.end()) {
            requireValue(*left);
            const std::string_view operation = cursor_.take().written;
            if (cursor_.word() == "ALL" || cursor_.word() == "ANY" || cursor_.word() == "SOME") {
                throwUnknown(cursor_.word());
            }
            ExpressionPtr right = parseOperand(cursor_);
            requireValue(*right);
            return makeExpression(Form::comparison, operation == "!=" ? "<>" : std::string(operation), std::move(left),
                                  std::move(right));
        }
        if (cursor_.word() == "IS") {
            requireValue(*left);
            cursor_.advance();
            ExpressionPtr result = makeExpression(Form::isNull, {}, std::move(left));
            result->negated = cursor_.accept("NOT");
            cursor_.expect("NULL");
            return result;
        }
        const bool negated = cursor_.word() == "NOT" &&
                             (cursor_.word(1) == "BETWEEN" || cursor_.word(1) == "IN" || cursor_.word(1) == "LIKE");
        if (negated) {
            cursor_.advance();
        }
        ExpressionPtr result = rangeListOrPattern(left);
        if (!result) {
            return left;
        }
        result->negated = negated;
        return result;
    }

    /// BETWEEN, IN, LIKE behind `left`; nothing when none of them comes.
    ExpressionPtr rangeListOrPattern(ExpressionPtr& left) {
        if (cursor_.accept("BETWEEN")) {
            requireValue(*left);
            ExpressionPtr low = valueOperand();
            cursor_.expect("AND");
            ExpressionPtr high = valueOperand();
            return makeExpression(Form::between, {}, std::move(left), std::move(low), std::move(high));
        }
        if (cursor_.accept("LIKE")) {
            requireValue(*left);
            ExpressionPtr pattern = valueOperand();
            if (cursor_.accept("ESCAPE")) {
                return makeExpression(Form::like, {}, std::move(left), std::move(pattern), valueOperand());
            }
            return makeExpression(Form::like, {}, std::move(left), std::move(pattern));
        }
        if (!cursor_.accept("IN")) {
            return nullptr;
        }
        requireValue(*left);
        cursor_.expectSymbol("(");
        ExpressionPtr result = makeExpression(cursor_.word() == "SELECT" ? Form::inSelect : Form::inList);
        result->operands.push_back(std::move(left));
        if (result->form == Form::inSelect) {
            result->select = parseSelect(cursor_);
        } else {
            do {
                result->operands.push_back(parseValue(cursor_));
            } while (cursor_.acceptSymbol(","));
        }
        cursor_.expectSymbol(")");
        return checked(std::move(result));
    }

    ExpressionPtr valueOperand() {
        ExpressionPtr result = parseOperand(cursor_);
        requireValue(*result);
        return result;
    }

    TokenCursor& cursor_;
};

}  // namespace

ExpressionPtr parseExpression(TokenCursor& cursor) {
    return ExpressionParser(cursor).expression();
}

ExpressionPtr parseCondition(TokenCursor& cursor) {
    ExpressionPtr result = parseExpression(cursor);
    requireCondition(*result);
    return result;
}

ExpressionPtr parseValue(TokenCursor& cursor) {
    ExpressionPtr result = parseExpression(cursor);
    requireValue(*result);
    return result;
}

}  // namespace velmora::tsql
