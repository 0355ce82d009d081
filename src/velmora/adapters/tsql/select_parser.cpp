#include "velmora/adapters/tsql/select_parser.h"

#include <array>
#include <optional>
#include <utility>

#include "velmora/adapters/tsql/expression_builder.h"
#include "velmora/adapters/tsql/expression_parser.h"
#include "velmora/adapters/tsql/refusals.h"

namespace velmora::tsql {

namespace {

class SelectParser {
  public:
    explicit SelectParser(TokenCursor& cursor) : cursor_(cursor) {}

    std::unique_ptr<Select> select() {
        const Nesting nesting(cursor_);
        cursor_.expect("SELECT");
        auto result = std::make_unique<Select>();
        if (cursor_.accept("DISTINCT")) {
            result->distinct = true;
        } else {
            cursor_.accept("ALL");
        }
        if (cursor_.accept("TOP")) {
            result->top = top();
        }
        do {
            result->items.push_back(item());
        } while (cursor_.acceptSymbol(","));
        if (cursor_.word() == "INTO") {
            throwUnknown("SELECT … INTO");
        }
        if (cursor_.accept("FROM")) {
            from(*result);
        }
        if (cursor_.accept("WHERE")) {
            result->where = parseCondition(cursor_);
        }
        if (cursor_.accept("GROUP")) {
            cursor_.expect("BY");
            do {
                result->groupBy.push_back(parseValue(cursor_));
            } while (cursor_.acceptSymbol(","));
        }
        if (cursor_.accept("HAVING")) {
            result->having = parseCondition(cursor_);
        }
        refuseSetOperators();
        if (cursor_.accept("ORDER")) {
            cursor_.expect("BY");
            do {
                result->orderBy.push_back(orderItem());
            } while (cursor_.acceptSymbol(","));
        }
        refuseSetOperators();
        for (const std::string_view clause : {"FOR", "OPTION"}) {
            if (cursor_.word() == clause) {
                throwUnknown(clause);
            }
        }
        return result;
    }

  private:
    void refuseSetOperators() const {
        for (const std::string_view operation : {"UNION", "EXCEPT", "INTERSECT"}) {
            if (cursor_.word() == operation) {
                throwUnknown(operation);
            }
        }
    }

    ExpressionPtr top() {
        ExpressionPtr count = makeExpression(Form::whole);
        const bool parenthesis = cursor_.acceptSymbol("(");
        count->text = std::to_string(cursor_.wholeNumber());
        if (parenthesis) {
            cursor_.expectSymbol(")");
        }
        if (cursor_.word() == "PERCENT") {
            throwUnknown("TOP … PERCENT");
        }
        if (cursor_.word() == "WITH" && cursor_.word(1) == "TIES") {
            throwUnknown("TOP … WITH TIES");
        }
        return count;
    }

    Item item() {
        Item result;
        if (cursor_.isSymbol("*")) {
            cursor_.advance();
            result.value = makeExpression(Form::star);
            return result;
        }
        if (const std::size_t length = qualifiedStar(); length > 0) {
            result.value = makeExpression(Form::star);
            result.value->qualifier = nameIn(cursor_.current(length - 3));
            cursor_.advance(length);
            return result;
        }
        result.value = parseValue(cursor_);
        if (cursor_.accept("AS")) {
            result.alias = cursor_.current().kind == TokenKind::text ? cursor_.take().value : cursor_.name("un alias");
        } else if (cursor_.current().kind == TokenKind::text) {
            result.alias = cursor_.take().value;
        } else if (cursor_.atName()) {
            result.alias = cursor_.name();
        }
        return result;
    }

    /// How many tokens stand for `t.*` or `dbo.t.*` here; 0 when this is no such item.
    std::size_t qualifiedStar() const {
        for (std::size_t names = 1; names <= 3; ++names) {
            const std::size_t at = 2 * (names - 1);
            const TokenKind kind = cursor_.current(at).kind;
            if ((kind != TokenKind::word && kind != TokenKind::quotedName) || !cursor_.isSymbol(".", at + 1)) {
                return 0;
            }
            if (cursor_.isSymbol("*", at + 2)) {
                return at + 3;
            }
        }
        return 0;
    }

    void from(Select& result) {
        Join join = Join::first;
        do {
            result.from.push_back(fromItem(join));
            while (const auto next = joinWord()) {
                result.from.push_back(fromItem(*next));
                if (*next != Join::cross) {
                    cursor_.expect("ON");
                    result.from.back().on = parseCondition(cursor_);
                }
            }
            join = Join::comma;
        } while (cursor_.acceptSymbol(","));
    }

    std::optional<Join> joinWord() {
        static constexpr std::array<std::pair<std::string_view, Join>, 5> kinds = {{{"INNER", Join::inner},
                                                                                    {"LEFT", Join::left},
                                                                                    {"RIGHT", Join::right},
                                                                                    {"FULL", Join::full},
                                                                                    {"CROSS", Join::cross}}};
        if (cursor_.accept("JOIN")) {
            return Join::inner;
        }
        for (const auto& [keyword, join] : kinds) {
            if (cursor_.word() == keyword && !cursor_.isSymbol("(", 1)) {
                cursor_.advance();
                if (join != Join::inner && join != Join::cross) {
                    cursor_.accept("OUTER");
                }
                cursor_.expect("JOIN");
                return join;
            }
        }
        return std::nullopt;
    }

    FromItem fromItem(Join join) {
        FromItem result;
        result.join = join;
        if (cursor_.acceptSymbol("(")) {
            if (cursor_.word() != "SELECT") {
                throwUnknown("un paréntesis en FROM que no es una subconsulta");
            }
            result.select = select();
            cursor_.expectSymbol(")");
        } else {
            result.table = cursor_.tableName();
            if (cursor_.isSymbol("(")) {
                throwUnknown("una función o un indicador de tabla en FROM");
            }
        }
        if (cursor_.accept("AS") || cursor_.atName()) {
            result.alias = cursor_.name("un alias");
        }
        if (result.select && result.alias.empty()) {
            throwSyntax("La subconsulta de FROM no tiene alias");
        }
        if (cursor_.word() == "WITH" && cursor_.isSymbol("(", 1)) {
            throwUnknown("un indicador de tabla (WITH)");
        }
        return result;
    }

    OrderItem orderItem() {
        OrderItem result;
        result.value = parseValue(cursor_);
        if (cursor_.accept("DESC")) {
            result.descending = true;
        } else {
            cursor_.accept("ASC");
        }
        return result;
    }

    TokenCursor& cursor_;
};

}  // namespace

std::unique_ptr<Select> parseSelect(TokenCursor& cursor) {
    return SelectParser(cursor).select();
}

}  // namespace velmora::tsql
