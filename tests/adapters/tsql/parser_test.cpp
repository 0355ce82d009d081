// What the tree of a statement holds, with no table and no engine behind it.

#include "velmora/adapters/tsql/parser.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

namespace velmora::tsql {

namespace {

template <typename Tree>
Tree parsed(std::string_view text) {
    return std::get<Tree>(parse(text));
}

std::unique_ptr<Select> selectOf(std::string_view text) {
    return parsed<std::unique_ptr<Select>>(text);
}

/// Operators around their operands in parentheses: what binds more tightly stands further inside.
std::string shape(const Expression& expression) {
    switch (expression.form) {
        case Form::column:
            return (expression.qualifier.empty() ? "" : expression.qualifier + ".") + expression.text;
        case Form::whole:
            return expression.text;
        case Form::arithmetic:
        case Form::comparison:
            return "(" + shape(*expression.operands[0]) + expression.text + shape(*expression.operands[1]) + ")";
        case Form::no:
            return "no" + shape(*expression.operands[0]);
        case Form::both:
        case Form::either: {
            std::string all;
            for (const ExpressionPtr& operand : expression.operands) {
                all += (all.empty() ? "" : expression.form == Form::both ? "&" : "|") + shape(*operand);
            }
            return "(" + all + ")";
        }
        default:
            return "?";
    }
}

std::string treeOf(std::string_view condition) {
    return shape(*selectOf("select a from T where " + std::string(condition))->where);
}

}  // namespace

TEST(Parser, OperatorsBindAsTheServerBindsThem) {
    EXPECT_EQ(treeOf("a + b * c = 1"), "((a+(b*c))=1)");
    EXPECT_EQ(treeOf("(a + b) * c = 1"), "(((a+b)*c)=1)");
    EXPECT_EQ(treeOf("a - b - c > 1"), "(((a-b)-c)>1)");
    EXPECT_EQ(treeOf("a = 1 or b = 2 and not c = 3"), "((a=1)|((b=2)&no(c=3)))");
    EXPECT_EQ(treeOf("T.a <> 1"), "(T.a<>1)");
}

TEST(Parser, ASelectHoldsItsClauses) {
    const auto select = selectOf(
        "SELECT distinct top 5 a as Uno, b Dos from T inner join DOC.dbo.U as u on T.a = u.a "
        "where a = 1 group by a, b having count(*) > 1 order by b desc, a");
    EXPECT_TRUE(select->distinct);
    ASSERT_TRUE(select->top);
    EXPECT_EQ(select->top->text, "5");
    ASSERT_EQ(select->items.size(), 2u);
    EXPECT_EQ(select->items[0].alias, "Uno");
    EXPECT_EQ(select->items[1].alias, "Dos");
    ASSERT_EQ(select->from.size(), 2u);
    EXPECT_EQ(select->from[0].table.name, "T");
    EXPECT_EQ(select->from[1].join, Join::inner);
    EXPECT_EQ(select->from[1].table.catalog, "DOC");
    EXPECT_EQ(select->from[1].table.schema, "dbo");
    EXPECT_EQ(select->from[1].alias, "u");
    ASSERT_TRUE(select->from[1].on);
    EXPECT_EQ(shape(*select->from[1].on), "(T.a=u.a)");
    EXPECT_EQ(select->groupBy.size(), 2u);
    EXPECT_TRUE(select->having);
    ASSERT_EQ(select->orderBy.size(), 2u);
    EXPECT_TRUE(select->orderBy[0].descending);
    EXPECT_FALSE(select->orderBy[1].descending);
}

TEST(Parser, WritesHoldColumnsAndValues) {
    const auto insert = parsed<Insert>("insert into T (a, [b c]) values (1, 'x'), (2, 'y')");
    EXPECT_EQ(insert.columns, (std::vector<std::string>{"a", "b c"}));
    ASSERT_EQ(insert.rows.size(), 2u);
    EXPECT_EQ(insert.rows[1][1]->text, "y");

    const auto update = parsed<Update>("update T set a = 1, b = 2 where c = 3");
    ASSERT_EQ(update.assignments.size(), 2u);
    EXPECT_EQ(update.assignments[1].column, "b");
    EXPECT_EQ(update.assignments[1].value->text, "2");
    EXPECT_EQ(shape(*update.where), "(c=3)");

    EXPECT_FALSE(parsed<Delete>("delete from T").where);
}

TEST(Parser, ATableHoldsTypesTraitsAndKeys) {
    const auto create = parsed<CreateTable>(
        "CREATE TABLE T (Id int IDENTITY (7, 1) NOT NULL, t nvarchar(15) DEFAULT 'x', m numeric(10, 2) UNIQUE, "
        "l ntext, CONSTRAINT PK_T PRIMARY KEY (Id))");
    ASSERT_EQ(create.columns.size(), 4u);
    EXPECT_TRUE(create.columns[0].identity);
    EXPECT_TRUE(create.columns[0].notNull);
    EXPECT_EQ(create.columns[0].seed, 7u);
    EXPECT_EQ(create.columns[1].type.kind, Kind::text);
    EXPECT_EQ(create.columns[1].type.length, 15u);
    EXPECT_EQ(create.columns[1].type.name, "nvarchar(15)");
    EXPECT_TRUE(create.columns[1].defaultValue);
    EXPECT_EQ(create.columns[2].type.scale, 2);
    EXPECT_TRUE(create.columns[2].unique);
    EXPECT_EQ(create.columns[3].type.length, unlimited);
    ASSERT_EQ(create.keys.size(), 1u);
    EXPECT_EQ(create.keys[0].name, "PK_T");
    EXPECT_TRUE(create.keys[0].primary);
    EXPECT_EQ(create.keys[0].columns, std::vector<std::string>{"Id"});
}

TEST(Parser, RefusalsNameTheConstruct) {
    try {
        parse("select a from T union select b from T");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::syntax);
        EXPECT_EQ(error.details().sqlState, "42000");
        EXPECT_NE(error.description().find("UNION"), std::string::npos) << error.description();
    }
}

}  // namespace velmora::tsql
