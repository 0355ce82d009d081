#include "velmora/platform/session/shown_row.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/scripted_connection.h"

namespace velmora::session {
namespace {

constexpr const char* lookUp = "select * from T where K = 7";

sql::Recordset rows(std::vector<sql::Row> values) {
    return sql::Recordset(sql::rowsInMemory({{"K"}, {"Nombre"}, {"Precio"}, {"Articulo"}}, std::move(values)));
}

/// The displayed row is 7, with a column of another table after its own three.
class ShownRowTest : public ::testing::Test {
  protected:
    void stands(std::vector<sql::Row> now) { connection.answer(lookUp, {"K", "Nombre", "Precio"}, std::move(now)); }

    support::ScriptedConnection connection;
    ShownRow row{rows({{7, "Acero", 1.5, "R-F114"}}), lookUp};
};

TEST_F(ShownRowTest, WhatBecameOfARow) {
    struct Case {
        std::vector<sql::Row> now;
        RowState state;
    };
    for (const Case& each :
         {Case{{}, RowState::closed}, Case{{{7, "Acero", 1.5}}, RowState::asShown},
          Case{{{7, "Hierro", 1.5}}, RowState::changed}, Case{{{7, "Acero", 1.51}}, RowState::changed},
          Case{{{7, sql::Value(), 1.5}}, RowState::changed}}) {
        stands(each.now);
        EXPECT_EQ(row.state(connection), each.state);
    }
}

TEST_F(ShownRowTest, TheValuesAreThoseOfTheRowAtTheTime) {
    sql::Recordset list = rows({{6, "Hierro", 1.0, ""}, {7, "Acero", 1.5, ""}});
    list.moveNext();
    const ShownRow second(list, lookUp);
    list.moveFirst();
    stands({{7, "Acero", 1.5}});
    EXPECT_EQ(second.state(connection), RowState::asShown);
}

TEST_F(ShownRowTest, WithoutACurrentRowNoneIsShown) {
    EXPECT_THROW(ShownRow(rows({}), lookUp), runtime::RuntimeError);
}

TEST_F(ShownRowTest, AColumnThatWasNotShownIsAnErrorOfTheProgram) {
    connection.answer(lookUp, {"K", "Nuevo"}, {{7, 1}});
    EXPECT_THROW(row.state(connection), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::session
