#include "velmora/adapters/sqlite/parser.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/tokenizer.h"

namespace velmora::sqlite {

namespace {

/// Beyond this the engine's own limits and the stack would decide.
constexpr std::size_t deepest = 200;

constexpr auto statementWords =
    std::to_array<std::string_view>({"ALTER",    "BEGIN",  "COMMIT", "CREATE",   "DECLARE", "DELETE", "DROP",  "EXEC",
                                     "EXECUTE",  "GO",     "GRANT",  "IF",       "INSERT",  "MERGE",  "PRINT", "REVOKE",
                                     "ROLLBACK", "SELECT", "SET",    "TRUNCATE", "UPDATE",  "USE",    "WHILE", "WITH"});

/// Words that end an expression or an item of a list, so that they are no name unless in brackets.
constexpr auto reservedWords = std::to_array<std::string_view>(
    {"ADD",    "ALL",      "AND",    "ANY",        "AS",         "ASC",     "BETWEEN", "BY",       "CASE",
     "CHECK",  "COLLATE",  "COLUMN", "CONSTRAINT", "CROSS",      "DEFAULT", "DESC",    "DISTINCT", "ELSE",
     "END",    "ESCAPE",   "EXCEPT", "EXISTS",     "FOR",        "FOREIGN", "FROM",    "FULL",     "GROUP",
     "HAVING", "IDENTITY", "IN",     "INNER",      "INTERSECT",  "INTO",    "IS",      "JOIN",     "KEY",
     "LEFT",   "LIKE",     "NOT",    "NULL",       "ON",         "OPTION",  "OR",      "ORDER",    "OUTER",
     "OVER",   "PERCENT",  "PIVOT",  "PRIMARY",    "REFERENCES", "RIGHT",   "TABLE",   "THEN",     "TO",
     "TOP",    "UNION",    "UNIQUE", "VALUES",     "WHEN",       "WHERE"});

template <typename Words>
bool contains(const Words& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

class Parser {
  public:
    explicit Parser(std::string_view text) : tokens_(tokenize(text)) {
        folded_.reserve(tokens_.size());
        for (const Token& token : tokens_) {
            folded_.push_back(token.kind == TokenKind::word ? foldName(token.written) : std::string());
        }
    }

    StatementTree whole() {
        StatementTree statement = one();
        const bool closed = acceptSymbol(";");
        if (current().kind != TokenKind::end) {
            if (closed || contains(statementWords, word())) {
                throwSyntax("Solo se admite una instrucción por llamada");
            }
            unexpected();
        }
        return statement;
    }

  private:
    // Tokens.

    const Token& current() const { return tokens_[at_]; }
    std::string_view word(std::size_t ahead = 0) const {
        return at_ + ahead < folded_.size() ? std::string_view(folded_[at_ + ahead]) : std::string_view();
    }
    bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const {
        return at_ + ahead < tokens_.size() && tokens_[at_ + ahead].kind == TokenKind::symbol &&
               tokens_[at_ + ahead].written == symbol;
    }
    bool accept(std::string_view keyword) {
        if (word() != keyword) {
            return false;
        }
        ++at_;
        return true;
    }
    bool acceptSymbol(std::string_view symbol) {
        if (!isSymbol(symbol)) {
            return false;
        }
        ++at_;
        return true;
    }
    void expect(std::string_view keyword) {
        if (!accept(keyword)) {
            unexpected(keyword);
        }
    }
    void expectSymbol(std::string_view symbol) {
        if (!acceptSymbol(symbol)) {
            unexpected(symbol);
        }
    }
    [[noreturn]] void unexpected(std::string_view wanted = {}) const {
        std::string description = current().kind == TokenKind::end
                                      ? "La instrucción está incompleta"
                                      : "Sintaxis no admitida cerca de '" + std::string(current().written) + "'";
        if (!wanted.empty()) {
            description += ": falta '" + std::string(wanted) + "'";
        }
        throwSyntax(std::move(description));
    }
    [[noreturn]] static void unknown(std::string_view construct) {
        throwSyntax("Construcción no admitida: " + std::string(construct));
    }

    bool atName() const {
        if (current().kind == TokenKind::quotedName) {
            return true;
        }
        return current().kind == TokenKind::word && !contains(reservedWords, word()) &&
               !contains(statementWords, word());
    }
    std::string name(std::string_view what = "un nombre") {
        if (!atName()) {
            unexpected(what);
        }
        const Token& token = tokens_[at_++];
        return token.kind == TokenKind::quotedName ? token.value : std::string(token.written);
    }

    std::size_t wholeNumber() {
        std::size_t value = 0;
        const std::string_view digits = current().written;
        if (current().kind != TokenKind::whole ||
            std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc()) {
            unexpected("un número entero");
        }
        ++at_;
        return value;
    }

    TableName tableName() {
        TableName table;
        table.name = name("el nombre de una tabla");
        for (int part = 0; acceptSymbol("."); ++part) {
            if (part == 2) {
                unknown("un nombre de tabla con servidor");
            }
            table.catalog = std::move(table.schema);
            table.schema = std::move(table.name);
            if (isSymbol(".")) {
                table.name = "dbo";
            } else {
                table.name = name("el nombre de una tabla");
            }
        }
        return table;
    }

    // Statements.

    StatementTree one() {
        const std::string_view first = word();
        if (first == "SELECT") {
            return select();
        }
        if (accept("INSERT")) {
            return insert();
        }
        if (accept("UPDATE")) {
            return update();
        }
        if (accept("DELETE")) {
            return remove();
        }
        if (accept("CREATE")) {
            return create();
        }
        if (accept("ALTER")) {
            return alter();
        }
        if (accept("DROP")) {
            return drop();
        }
        if (accept("SET")) {
            return set();
        }
        if (current().kind == TokenKind::end) {
            throwSyntax("La instrucción está vacía");
        }
        if (current().kind == TokenKind::word) {
            unknown(first);
        }
        unexpected();
    }

    std::unique_ptr<Select> select() {
        const Nesting nesting(*this);
        expect("SELECT");
        auto result = std::make_unique<Select>();
        if (accept("DISTINCT")) {
            result->distinct = true;
        } else {
            accept("ALL");
        }
        if (accept("TOP")) {
            result->top = top();
        }
        do {
            result->items.push_back(item());
        } while (acceptSymbol(","));
        if (word() == "INTO") {
            unknown("SELECT … INTO");
        }
        if (accept("FROM")) {
            from(*result);
        }
        if (accept("WHERE")) {
            result->where = condition();
        }
        if (accept("GROUP")) {
            expect("BY");
            do {
                result->groupBy.push_back(value());
            } while (acceptSymbol(","));
        }
        if (accept("HAVING")) {
            result->having = condition();
        }
        refuseSetOperators();
        if (accept("ORDER")) {
            expect("BY");
            do {
                result->orderBy.push_back(orderItem());
            } while (acceptSymbol(","));
        }
        refuseSetOperators();
        for (const std::string_view clause : {"FOR", "OPTION"}) {
            if (word() == clause) {
                unknown(clause);
            }
        }
        return result;
    }

    void refuseSetOperators() const {
        for (const std::string_view operation : {"UNION", "EXCEPT", "INTERSECT"}) {
            if (word() == operation) {
                unknown(operation);
            }
        }
    }

    ExpressionPtr top() {
        ExpressionPtr count = make(Form::whole);
        const bool parenthesis = acceptSymbol("(");
        count->text = std::to_string(wholeNumber());
        if (parenthesis) {
            expectSymbol(")");
        }
        if (word() == "PERCENT") {
            unknown("TOP … PERCENT");
        }
        if (word() == "WITH" && word(1) == "TIES") {
            unknown("TOP … WITH TIES");
        }
        return count;
    }

    Item item() {
        Item result;
        if (isSymbol("*")) {
            ++at_;
            result.value = make(Form::star);
            return result;
        }
        if (const std::size_t length = qualifiedStar(); length > 0) {
            result.value = make(Form::star);
            const Token& owner = tokens_[at_ + length - 3];
            result.value->qualifier = owner.kind == TokenKind::quotedName ? owner.value : std::string(owner.written);
            at_ += length;
            return result;
        }
        result.value = value();
        if (accept("AS")) {
            result.alias = current().kind == TokenKind::text ? tokens_[at_++].value : name("un alias");
        } else if (current().kind == TokenKind::text) {
            result.alias = tokens_[at_++].value;
        } else if (atName()) {
            result.alias = name();
        }
        return result;
    }

    /// How many tokens stand for `t.*` or `dbo.t.*` here; 0 when this is no such item.
    std::size_t qualifiedStar() const {
        for (std::size_t names = 1; names <= 3; ++names) {
            const std::size_t at = 2 * (names - 1);
            if (at_ + at >= tokens_.size()) {
                return 0;
            }
            const TokenKind kind = tokens_[at_ + at].kind;
            if ((kind != TokenKind::word && kind != TokenKind::quotedName) || !isSymbol(".", at + 1)) {
                return 0;
            }
            if (isSymbol("*", at + 2)) {
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
                    expect("ON");
                    result.from.back().on = condition();
                }
            }
            join = Join::comma;
        } while (acceptSymbol(","));
    }

    std::optional<Join> joinWord() {
        static constexpr std::array<std::pair<std::string_view, Join>, 5> kinds = {{{"INNER", Join::inner},
                                                                                    {"LEFT", Join::left},
                                                                                    {"RIGHT", Join::right},
                                                                                    {"FULL", Join::full},
                                                                                    {"CROSS", Join::cross}}};
        if (accept("JOIN")) {
            return Join::inner;
        }
        for (const auto& [keyword, join] : kinds) {
            if (word() == keyword && !isSymbol("(", 1)) {
                ++at_;
                if (join != Join::inner && join != Join::cross) {
                    accept("OUTER");
                }
                expect("JOIN");
                return join;
            }
        }
        return std::nullopt;
    }

    FromItem fromItem(Join join) {
        FromItem result;
        result.join = join;
        if (acceptSymbol("(")) {
            if (word() != "SELECT") {
                unknown("un paréntesis en FROM que no es una subconsulta");
            }
            result.select = select();
            expectSymbol(")");
        } else {
            result.table = tableName();
            if (isSymbol("(")) {
                unknown("una función o un indicador de tabla en FROM");
            }
        }
        if (accept("AS") || atName()) {
            result.alias = name("un alias");
        }
        if (result.select && result.alias.empty()) {
            throwSyntax("La subconsulta de FROM no tiene alias");
        }
        if (word() == "WITH" && isSymbol("(", 1)) {
            unknown("un indicador de tabla (WITH)");
        }
        return result;
    }

    OrderItem orderItem() {
        OrderItem result;
        result.value = value();
        if (accept("DESC")) {
            result.descending = true;
        } else {
            accept("ASC");
        }
        return result;
    }

    Insert insert() {
        Insert result;
        accept("INTO");
        result.table = tableName();
        if (acceptSymbol("(")) {
            result.columns = columnNames();
        }
        if (word() == "SELECT") {
            result.select = select();
            return result;
        }
        if (word() == "DEFAULT") {
            unknown("INSERT … DEFAULT VALUES");
        }
        expect("VALUES");
        do {
            expectSymbol("(");
            std::vector<ExpressionPtr> row;
            do {
                row.push_back(value());
            } while (acceptSymbol(","));
            expectSymbol(")");
            result.rows.push_back(std::move(row));
        } while (acceptSymbol(","));
        return result;
    }

    /// The rest of a list of names in parentheses.
    std::vector<std::string> columnNames() {
        std::vector<std::string> names;
        do {
            names.push_back(name("el nombre de una columna"));
        } while (acceptSymbol(","));
        expectSymbol(")");
        return names;
    }

    Update update() {
        Update result;
        result.table = tableName();
        expect("SET");
        do {
            Assignment assignment;
            assignment.column = name("el nombre de una columna");
            if (acceptSymbol(".")) {
                assignment.column = name("el nombre de una columna");
            }
            expectSymbol("=");
            assignment.value = value();
            result.assignments.push_back(std::move(assignment));
        } while (acceptSymbol(","));
        if (word() == "FROM") {
            unknown("UPDATE … FROM");
        }
        if (accept("WHERE")) {
            result.where = condition();
        }
        return result;
    }

    Delete remove() {
        Delete result;
        accept("FROM");
        result.table = tableName();
        if (word() == "FROM") {
            unknown("DELETE … FROM … FROM");
        }
        if (accept("WHERE")) {
            result.where = condition();
        }
        return result;
    }

    StatementTree create() {
        if (accept("TABLE")) {
            return createTable();
        }
        const bool unique = accept("UNIQUE");
        if (!accept("CLUSTERED")) {
            accept("NONCLUSTERED");
        }
        if (accept("INDEX")) {
            return createIndex(unique);
        }
        unknown("CREATE " + std::string(current().written));
    }

    CreateTable createTable() {
        CreateTable result;
        result.table = tableName();
        expectSymbol("(");
        do {
            if (word() == "CONSTRAINT" || word() == "PRIMARY" || word() == "UNIQUE") {
                result.keys.push_back(key());
            } else {
                refuseOtherConstraints();
                result.columns.push_back(columnDefinition());
            }
        } while (acceptSymbol(","));
        expectSymbol(")");
        fileGroups();
        return result;
    }

    void refuseOtherConstraints() const {
        if (word() == "FOREIGN" || word() == "REFERENCES") {
            unknown("FOREIGN KEY");
        }
        if (word() == "CHECK") {
            unknown("CHECK");
        }
    }

    /// ON [PRIMARY], TEXTIMAGE_ON [PRIMARY]: where the server puts the pages; one file is all there is here.
    void fileGroups() {
        while (word() == "ON" || word() == "TEXTIMAGE_ON") {
            ++at_;
            const bool primary = (current().kind == TokenKind::quotedName && foldName(current().value) == "PRIMARY") ||
                                 word() == "PRIMARY";
            if (!primary) {
                unknown("un grupo de ficheros distinto de PRIMARY");
            }
            ++at_;
        }
    }

    Type type() {
        if (!atName()) {
            unexpected("un tipo");
        }
        const std::string written = name();
        std::optional<std::size_t> first, second;
        if (acceptSymbol("(")) {
            if (accept("MAX")) {
                first = unlimited;
            } else {
                first = wholeNumber();
                if (acceptSymbol(",")) {
                    second = wholeNumber();
                }
            }
            expectSymbol(")");
        }
        auto known = typeNamed(written, first, second);
        if (!known) {
            unknown("el tipo " + written);
        }
        return *known;
    }

    /// The type of CAST and CONVERT, where a text of no stated length is one of 30.
    Type castType() {
        Type result = type();
        if (result.length != unlimited && tokens_[at_ - 1].kind == TokenKind::word) {
            result.length = 30;
        }
        return result;
    }

    ColumnDefinition columnDefinition() {
        ColumnDefinition column;
        column.name = name("el nombre de una columna");
        column.type = type();
        for (;;) {
            if (accept("COLLATE")) {
                collation();
            } else if (accept("IDENTITY")) {
                identity(column);
            } else if (accept("NOT")) {
                expect("NULL");
                column.notNull = true;
            } else if (accept("NULL")) {
                column.notNull = false;
            } else if (accept("CONSTRAINT")) {
                name("el nombre de la restricción");
            } else if (accept("DEFAULT")) {
                column.defaultValue = additive();
            } else if (accept("WITH")) {
                expect("VALUES");
                column.withValues = true;
            } else if (accept("PRIMARY")) {
                expect("KEY");
                clustering();
                column.primaryKey = column.notNull = true;
            } else if (accept("UNIQUE")) {
                clustering();
                column.unique = true;
            } else {
                refuseOtherConstraints();
                return column;
            }
        }
    }

    void collation() {
        const std::string collation = name("una intercalación");
        if (foldName(collation) != "MODERN_SPANISH_CI_AS" && foldName(collation) != "DATABASE_DEFAULT") {
            unknown("la intercalación " + collation);
        }
    }

    void identity(ColumnDefinition& column) {
        column.identity = true;
        column.notNull = true;
        if (column.type.kind != Kind::whole) {
            throwSyntax("La columna de identidad '" + column.name + "' no es de un tipo entero");
        }
        if (acceptSymbol("(")) {
            column.seed = wholeNumber();
            expectSymbol(",");
            if (wholeNumber() != 1) {
                unknown("IDENTITY con un incremento distinto de 1");
            }
            expectSymbol(")");
        }
    }

    void clustering() {
        if (!accept("CLUSTERED")) {
            accept("NONCLUSTERED");
        }
    }

    KeyDefinition key() {
        KeyDefinition result;
        if (accept("CONSTRAINT")) {
            result.name = name("el nombre de la restricción");
        }
        if (accept("PRIMARY")) {
            expect("KEY");
            result.primary = true;
        } else if (!accept("UNIQUE")) {
            refuseOtherConstraints();
            unknown("la restricción " + std::string(current().written));
        }
        clustering();
        expectSymbol("(");
        do {
            result.columns.push_back(name("el nombre de una columna"));
            if (!accept("ASC") && accept("DESC")) {
                unknown("una clave descendente");
            }
        } while (acceptSymbol(","));
        expectSymbol(")");
        fileGroups();
        return result;
    }

    CreateIndex createIndex(bool unique) {
        CreateIndex result;
        result.unique = unique;
        result.name = name("el nombre del índice");
        expect("ON");
        result.table = tableName();
        expectSymbol("(");
        do {
            OrderItem column;
            column.value = make(Form::column);
            column.value->text = name("el nombre de una columna");
            column.descending = accept("DESC");
            if (!column.descending) {
                accept("ASC");
            }
            result.columns.push_back(std::move(column));
        } while (acceptSymbol(","));
        expectSymbol(")");
        fileGroups();
        return result;
    }

    StatementTree alter() {
        if (!accept("TABLE")) {
            unknown("ALTER " + std::string(current().written));
        }
        TableName table = tableName();
        if (accept("WITH") && !accept("NOCHECK")) {
            expect("CHECK");
        }
        if (accept("DROP")) {
            expect("COLUMN");
            return DropColumn{std::move(table), name("el nombre de una columna")};
        }
        if (!accept("ADD")) {
            unknown("ALTER TABLE … " + std::string(current().written));
        }
        if (word() == "CONSTRAINT" || word() == "PRIMARY" || word() == "UNIQUE") {
            return AddKey{std::move(table), key()};
        }
        AddColumns result;
        result.table = std::move(table);
        do {
            refuseOtherConstraints();
            result.columns.push_back(columnDefinition());
        } while (acceptSymbol(","));
        return result;
    }

    StatementTree drop() {
        if (accept("TABLE")) {
            return DropTable{tableName()};
        }
        if (accept("INDEX")) {
            DropIndex result;
            TableName first = tableName();
            if (accept("ON")) {
                result.name = std::move(first.name);
                result.table = tableName();
            } else if (first.schema.empty()) {
                throwSyntax("Falta la tabla del índice '" + first.name + "'");
            } else {
                result.name = std::move(first.name);
                result.table.name = std::move(first.schema);
            }
            return result;
        }
        unknown("DROP " + std::string(current().written));
    }

    StatementTree set() {
        if (!accept("IDENTITY_INSERT")) {
            unknown("SET " + std::string(current().written));
        }
        AllowGivenKeys result{tableName()};
        if (!accept("ON")) {
            if (word() != "OFF") {
                unexpected("ON");
            }
            ++at_;
        }
        return result;
    }

    // Expressions, from the loosest binding to the tightest.

    ExpressionPtr make(Form form) const {
        auto expression = std::make_unique<Expression>();
        expression->form = form;
        return expression;
    }

    static ExpressionPtr checked(ExpressionPtr expression) {
        for (const ExpressionPtr& operand : expression->operands) {
            expression->height = std::max(expression->height, operand->height + 1);
        }
        if (expression->height > deepest) {
            throwSyntax("Expresión demasiado larga o anidada");
        }
        return expression;
    }

    template <typename... Operands>
    ExpressionPtr make(Form form, std::string text, Operands... operands) const {
        ExpressionPtr expression = make(form);
        expression->text = std::move(text);
        (expression->operands.push_back(std::move(operands)), ...);
        return checked(std::move(expression));
    }

    /// Guards the stack against parentheses within parentheses.
    class Nesting {
      public:
        explicit Nesting(Parser& parser) : parser_(parser) {
            if (++parser_.nesting_ > deepest) {
                throwSyntax("Expresión demasiado larga o anidada");
            }
        }
        ~Nesting() { --parser_.nesting_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

      private:
        Parser& parser_;
    };

    ExpressionPtr condition() {
        ExpressionPtr result = expression();
        if (!result->isCondition()) {
            throwSyntax("Se esperaba una condición y hay un valor");
        }
        return result;
    }

    ExpressionPtr value() {
        ExpressionPtr result = expression();
        requireValue(*result);
        return result;
    }

    static void requireValue(const Expression& expression) {
        if (expression.isCondition()) {
            throwSyntax("Se esperaba un valor y hay una condición");
        }
    }

    static void requireCondition(const Expression& expression) {
        if (!expression.isCondition()) {
            throwSyntax("Se esperaba una condición y hay un valor");
        }
    }

    ExpressionPtr expression() {
        const Nesting nesting(*this);
        return chain("OR", Form::either, [&] { return chain("AND", Form::both, [&] { return negation(); }); });
    }

    template <typename Next>
    ExpressionPtr chain(std::string_view keyword, Form form, Next next) {
        ExpressionPtr first = next();
        if (word() != keyword) {
            return first;
        }
        requireCondition(*first);
        ExpressionPtr all = make(form);
        all->operands.push_back(std::move(first));
        while (accept(keyword)) {
            all->operands.push_back(next());
            requireCondition(*all->operands.back());
        }
        return checked(std::move(all));
    }

    ExpressionPtr negation() {
        if (!accept("NOT")) {
            return predicate();
        }
        const Nesting nesting(*this);
        ExpressionPtr operand = negation();
        requireCondition(*operand);
        return make(Form::no, {}, std::move(operand));
    }

    ExpressionPtr predicate() {
        if (word() == "EXISTS") {
            ++at_;
            expectSymbol("(");
            ExpressionPtr result = make(Form::exists);
            result->select = select();
            expectSymbol(")");
            return result;
        }
        ExpressionPtr left = additive();
        static constexpr auto comparisons = std::to_array<std::string_view>({"=", "<", ">", "<=", ">=", "<>", "!="});
        if (current().kind == TokenKind::symbol && contains(comparisons, current().written)) {
            requireValue(*left);
            const std::string_view operation = tokens_[at_++].written;
            if (word() == "ALL" || word() == "ANY" || word() == "SOME") {
                unknown(word());
            }
            ExpressionPtr right = additive();
            requireValue(*right);
            return make(Form::comparison, operation == "!=" ? "<>" : std::string(operation), std::move(left),
                        std::move(right));
        }
        if (word() == "IS") {
            requireValue(*left);
            ++at_;
            ExpressionPtr result = make(Form::isNull, {}, std::move(left));
            result->negated = accept("NOT");
            expect("NULL");
            return result;
        }
        const bool negated = word() == "NOT" && (word(1) == "BETWEEN" || word(1) == "IN" || word(1) == "LIKE");
        if (negated) {
            ++at_;
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
        if (accept("BETWEEN")) {
            requireValue(*left);
            ExpressionPtr low = valueOperand();
            expect("AND");
            ExpressionPtr high = valueOperand();
            return make(Form::between, {}, std::move(left), std::move(low), std::move(high));
        }
        if (accept("LIKE")) {
            requireValue(*left);
            ExpressionPtr pattern = valueOperand();
            if (accept("ESCAPE")) {
                return make(Form::like, {}, std::move(left), std::move(pattern), valueOperand());
            }
            return make(Form::like, {}, std::move(left), std::move(pattern));
        }
        if (!accept("IN")) {
            return nullptr;
        }
        requireValue(*left);
        expectSymbol("(");
        ExpressionPtr result = make(word() == "SELECT" ? Form::inSelect : Form::inList);
        result->operands.push_back(std::move(left));
        if (result->form == Form::inSelect) {
            result->select = select();
        } else {
            do {
                result->operands.push_back(value());
            } while (acceptSymbol(","));
        }
        expectSymbol(")");
        return checked(std::move(result));
    }

    ExpressionPtr valueOperand() {
        ExpressionPtr result = additive();
        requireValue(*result);
        return result;
    }

    ExpressionPtr additive() {
        return leftToRight({"+", "-"}, [&] { return leftToRight({"*", "/", "%"}, [&] { return unary(); }); });
    }

    template <typename Next>
    ExpressionPtr leftToRight(std::initializer_list<std::string_view> operators, Next next) {
        ExpressionPtr left = next();
        while (current().kind == TokenKind::symbol &&
               std::find(operators.begin(), operators.end(), current().written) != operators.end()) {
            requireValue(*left);
            std::string operation(tokens_[at_++].written);
            ExpressionPtr right = next();
            requireValue(*right);
            left = make(Form::arithmetic, std::move(operation), std::move(left), std::move(right));
        }
        return left;
    }

    ExpressionPtr unary() {
        if (acceptSymbol("-")) {
            const Nesting nesting(*this);
            ExpressionPtr operand = unary();
            requireValue(*operand);
            return make(Form::negate, {}, std::move(operand));
        }
        if (acceptSymbol("+")) {
            const Nesting nesting(*this);
            ExpressionPtr operand = unary();
            requireValue(*operand);
            return operand;
        }
        ExpressionPtr result = primary();
        if (word() == "COLLATE") {
            ++at_;
            collation();
        }
        return result;
    }

    ExpressionPtr literal(Form form) {
        const Token& token = tokens_[at_++];
        ExpressionPtr result = make(form);
        result->text = form == Form::text || form == Form::binary ? token.value : std::string(token.written);
        return result;
    }

    ExpressionPtr primary() {
        switch (current().kind) {
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
        if (acceptSymbol("(")) {
            return parenthesized();
        }
        if (accept("NULL")) {
            return make(Form::null);
        }
        if (accept("CASE")) {
            return choice();
        }
        if (isSymbol("(", 1) && current().kind == TokenKind::word) {
            return call();
        }
        return column();
    }

    ExpressionPtr parenthesized() {
        if (word() == "SELECT") {
            ExpressionPtr result = make(Form::scalar);
            result->select = select();
            expectSymbol(")");
            return result;
        }
        ExpressionPtr result = expression();
        expectSymbol(")");
        return result;
    }

    ExpressionPtr choice() {
        const Nesting nesting(*this);
        ExpressionPtr result = make(Form::choice);
        if (word() != "WHEN") {
            result->simple = true;
            result->operands.push_back(value());
        }
        do {
            expect("WHEN");
            result->operands.push_back(result->simple ? value() : condition());
            expect("THEN");
            result->operands.push_back(value());
        } while (word() == "WHEN");
        if (accept("ELSE")) {
            result->hasElse = true;
            result->operands.push_back(value());
        }
        expect("END");
        return checked(std::move(result));
    }

    ExpressionPtr call() {
        const Nesting nesting(*this);
        const std::string function(word());
        at_ += 2;
        if (function == "CAST") {
            ExpressionPtr result = make(Form::cast, {}, value());
            expect("AS");
            result->type = castType();
            expectSymbol(")");
            return result;
        }
        if (function == "CONVERT") {
            ExpressionPtr result = make(Form::convert);
            result->type = castType();
            expectSymbol(",");
            result->operands.push_back(value());
            if (acceptSymbol(",")) {
                result->operands.push_back(value());
            }
            expectSymbol(")");
            return checked(std::move(result));
        }
        ExpressionPtr result = make(Form::function);
        result->text = function;
        if (isSymbol("*")) {
            ++at_;
            result->operands.push_back(make(Form::star));
        } else if (!isSymbol(")")) {
            result->distinct = accept("DISTINCT");
            do {
                result->operands.push_back(value());
            } while (acceptSymbol(","));
        }
        expectSymbol(")");
        if (word() == "OVER") {
            unknown("OVER");
        }
        return checked(std::move(result));
    }

    ExpressionPtr column() {
        ExpressionPtr result = make(Form::column);
        result->text = name("una expresión");
        for (int part = 0; acceptSymbol("."); ++part) {
            if (part == 3) {
                unknown("un nombre de columna con servidor");
            }
            result->qualifier = std::move(result->text);
            result->text = name("el nombre de una columna");
        }
        return result;
    }

    std::vector<Token> tokens_;
    std::vector<std::string> folded_;
    std::size_t at_ = 0;
    std::size_t nesting_ = 0;
};

}  // namespace

StatementTree parse(std::string_view text) {
    return Parser(text).whole();
}

}  // namespace velmora::sqlite
