#include "velmora/platform/session/shown_row.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/session/stand_in_session.h"

#include "support/recording_connection.h"
#include "support/scripted_connection.h"

namespace velmora::session {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* lookUp = "select * from T where K = 7";
constexpr const char* deed = "update T";

sql::Recordset rows(std::vector<sql::Row> values) {
    return sql::Recordset(sql::rowsInMemory({{"K"}, {"Nombre"}, {"Precio"}, {"Articulo"}}, std::move(values)));
}

/// On show stands the row 7, with a column of another table behind its own three.
class ShownRowTest : public ::testing::Test {
  protected:
    void stands(std::vector<sql::Row> now) { engine.answer(lookUp, {"K", "Nombre", "Precio"}, std::move(now)); }
    Outcome run(bool confirms, Ending ending = Ending::commit) {
        const auto confirm = [&, confirms] {
            ++asked;
            EXPECT_THROW(engine.commitTrans(), sql::DbError) << "a transaction waits on the user";
            return confirms;
        };
        return onShownRow(session, row, confirm, [&, ending] {
            connection.execute(deed);
            return ending;
        });
    }

    support::ScriptedConnection engine;
    support::RecordingConnection connection{engine};
    adapters::StandInSession session{connection};
    ShownRow row{rows({{7, "Acero", 1.5, "R-F114"}}), lookUp};
    int asked = 0;
};

TEST_F(ShownRowTest, WhatBecameOfARow) {
    struct Case {
        std::vector<sql::Row> now;
        Fate fate;
    };
    for (const Case& each :
         {Case{{}, Fate::gone}, Case{{{7, "Acero", 1.5}}, Fate::unchanged}, Case{{{7, "Hierro", 1.5}}, Fate::changed},
          Case{{{7, "Acero", 1.51}}, Fate::changed}, Case{{{7, sql::Value(), 1.5}}, Fate::changed}}) {
        stands(each.now);
        EXPECT_EQ(row.fate(connection), each.fate);
    }
    engine.answer(lookUp, {"K", "Nombre", "Precio", "Articulo", "Nuevo"}, {{7, "Acero", 1.5, "R-F114", 1}});
    EXPECT_EQ(row.fate(connection), Fate::changed) << "a column more than was shown";
}

TEST_F(ShownRowTest, TheValuesAreThoseOfTheRowAtTheTime) {
    sql::Recordset list = rows({{6, "Hierro", 1.0, ""}, {7, "Acero", 1.5, ""}});
    list.moveNext();
    const ShownRow second(list, lookUp);
    list.moveFirst();
    stands({{7, "Acero", 1.5}});
    EXPECT_EQ(second.fate(connection), Fate::unchanged);
}

TEST_F(ShownRowTest, WithoutACurrentRowNoneIsShown) {
    EXPECT_THROW(ShownRow(rows({}), lookUp), runtime::RuntimeError);
}

TEST_F(ShownRowTest, ARowAsItWasShownIsWorkedOnAfterTheLook) {
    stands({{7, "Acero", 1.5}});
    EXPECT_EQ(run(false), Outcome::done);
    EXPECT_EQ(asked, 0);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", lookUp, deed, "COMMIT"));
}

TEST_F(ShownRowTest, ARowThatIsGoneIsLeftAlone) {
    stands({});
    EXPECT_EQ(run(true), Outcome::gone);
    EXPECT_EQ(asked, 0);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", lookUp, "ROLLBACK"));
}

TEST_F(ShownRowTest, AChangedRowIsAskedAboutOnceAndLookedAtAgain) {
    stands({{7, "Hierro", 1.5}});
    EXPECT_EQ(run(true), Outcome::done);
    EXPECT_EQ(asked, 1);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", lookUp, "ROLLBACK", "BEGIN", lookUp, deed, "COMMIT"));
}

TEST_F(ShownRowTest, WhoDoesNotWantToGoOnLeavesTheRowAlone) {
    stands({{7, "Hierro", 1.5}});
    EXPECT_EQ(run(false), Outcome::declined);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", lookUp, "ROLLBACK"));
}

TEST_F(ShownRowTest, ARowThatGoesWhileTheQuestionStandsIsLeftAlone) {
    stands({{7, "Hierro", 1.5}});
    const Outcome outcome = onShownRow(
        session, row,
        [&] {
            stands({});
            return true;
        },
        [&] {
            connection.execute(deed);
            return Ending::commit;
        });
    EXPECT_EQ(outcome, Outcome::gone);
    EXPECT_THAT(connection.logged(deed), IsEmpty());
}

TEST_F(ShownRowTest, WorkThatThinksBetterOfItIsRolledBack) {
    stands({{7, "Acero", 1.5}});
    EXPECT_EQ(run(false, Ending::rollBack), Outcome::done);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", lookUp, deed, "ROLLBACK"));
}

TEST_F(ShownRowTest, WhateverGoesWrongIsRolledBackAndGoesUp) {
    const auto failing = [&](auto error) {
        inTransaction(session, [&]() -> Ending {
            session.Campos().Add("T_Nombre", Tipo::text, "Acero");
            throw error;
        });
    };
    EXPECT_THROW(failing(sql::DbError(sql::provider::failure, "Rechazada")), sql::DbError);
    EXPECT_THROW(failing(std::out_of_range("beyond the list")), std::out_of_range);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "ROLLBACK", "BEGIN", "ROLLBACK"));
    EXPECT_THAT(session.Campos().fields(), IsEmpty());
}

TEST_F(ShownRowTest, AFailedLookUpIsRolledBack) {
    connection.refuse(lookUp);
    EXPECT_THROW(run(true), sql::DbError);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", lookUp, "ROLLBACK"));
}

}  // namespace
}  // namespace velmora::session
