#include "velmora/adapters/sqlite/translator.h"

#include <utility>

#include "velmora/platform/sql/db_error.h"

namespace velmora::sqlite {

namespace {

/// The same set, read in another way; nothing when there is none.
std::shared_ptr<const CachedStatement> otherFormOf(const CachedStatement& original, const std::string& statement) {
    if (statement.empty()) {
        return nullptr;
    }
    Translation translation = *original.translation;
    translation.steps = {statement};
    translation.laterRowsStatement = statement + laterRows;
    auto made = std::make_shared<CachedStatement>(original);
    made->id = CachedStatement::nextId();
    made->translation = std::make_shared<const Translation>(std::move(translation));
    return made;
}

/// A statement of a shape with its own text and values.
template <typename Statement>
std::shared_ptr<Statement> instanceOf(const std::shared_ptr<Statement>& shape, std::string_view text,
                                      const std::vector<sql::Value>& values) {
    if (!shape) {
        return nullptr;
    }
    auto made = std::make_shared<CachedStatement>(*shape);
    made->text = std::string(text);
    made->values = values;
    made->walking = instanceOf(made->walking, text, values);
    made->keysFirst = instanceOf(made->keysFirst, text, values);
    return made;
}

bool hasLiterals(const Translation& translation, const tsql::Shape& shape) {
    return translation.fixed == fixedLiterals(translation.parameters, shape.literals);
}

}  // namespace

std::shared_ptr<CachedStatement> Translator::statementOf(std::string_view text) {
    const bool keptByText = !tsql::changesRows(text);
    if (keptByText) {
        if (auto found = known(text)) {
            return found;
        }
    }
    const tsql::Shape shape = byShape_ ? tsql::shapeOf(text) : tsql::Shape{.text = std::string(text)};
    const auto make = [&] {
        auto statement = translated(text, shape);
        if (keptByText && statement->runsAgain) {
            cache_.add(statement);
        }
        return statement;
    };
    try {
        return make();
    } catch (const sql::DbError&) {
        if (!with_.forgetTables()) {
            throw;
        }
    }
    // Another process may have made the table or the column, or a wider one, since it was looked up.
    forget();
    return make();
}

/// What was kept under this text, unless the tables have changed since.
std::shared_ptr<CachedStatement> Translator::known(std::string_view text) {
    auto found = cache_.find(text);
    // The engine itself prepares a statement anew when the tables have changed.
    if (found && !with_.link().hasPrepared(*found) && with_.link().schemaVersion() != found->schemaVersion) {
        forget();
        with_.forgetTables();
        return nullptr;
    }
    return found;
}

std::shared_ptr<CachedStatement> Translator::translated(std::string_view text, const tsql::Shape& shape) {
    const auto common = ofShape(text, shape);
    if (const auto values = valuesOf(common->translation->parameters, shape.literals)) {
        return instanceOf(common, text, *values);
    }
    return made(text, translate(text, with_.catalog));
}

/// What all statements of the shape have in common that agree in the literals that are no parameters.
std::shared_ptr<CachedStatement> Translator::ofShape(std::string_view text, const tsql::Shape& shape) {
    if (auto found = known(shape.text); found && hasLiterals(*found->translation, shape)) {
        return found;
    }
    Translation translation = translate(text, with_.catalog, shape);
    translation.fixed = fixedLiterals(translation.parameters, shape.literals);
    auto common = made(shape.text, std::move(translation));
    const bool comesAgain = common->translation->answer == Answer::changes || !common->translation->parameters.empty();
    if (common->runsAgain && comesAgain) {
        cache_.add(common);
    }
    return common;
}

std::shared_ptr<CachedStatement> Translator::made(std::string_view text, Translation translation) {
    auto statement = std::make_shared<CachedStatement>();
    statement->text = std::string(text);
    statement->runsAgain =
        text.size() <= longestCachedText && translation.answer != Answer::schema && !translation.steps.empty();
    statement->translation = std::make_shared<const Translation>(std::move(translation));
    statement->schemaVersion = with_.link().schemaVersion();
    statement->walking = otherFormOf(*statement, statement->translation->walkStatement);
    statement->keysFirst = otherFormOf(*statement, statement->translation->keysStatement);
    return statement;
}

}  // namespace velmora::sqlite
