#include "velmora/platform/sql/recordset.h"

#include <functional>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::sql {

namespace {

Recordset three() {
    return Recordset(rowsInMemory({{"Id"}, {"Nombre"}, {"ID"}}, {{1, "uno", 10}, {2, "Dós", 20}, {3, {}, 30}}));
}

Recordset none() {
    return Recordset(rowsInMemory({{"Id"}}, {}));
}

template <typename Action>
long errorOf(Action action) {
    try {
        action();
    } catch (const runtime::RuntimeError& error) {
        EXPECT_FALSE(error.description().empty());
        return error.number();
    }
    return 0;
}

}  // namespace

TEST(RecordsetTest, OpensOnTheFirstRow) {
    const Recordset rows = three();
    EXPECT_EQ(rows.position(), 0u);
    EXPECT_FALSE(rows.eof());
    EXPECT_FALSE(rows.bof());
    EXPECT_EQ(rows["nombre"], Value("uno"));
}

TEST(RecordsetTest, TheFirstColumnOfANameAnswers) {
    const Recordset rows = three();
    EXPECT_EQ(rows["id"], Value(1));
    EXPECT_EQ(rows[std::size_t{2}], Value(10));
}

TEST(RecordsetTest, NamesBeyondAsciiAnswerInAnyCase) {
    const Recordset rows(rowsInMemory({{"Año"}, {"Ano"}}, {{1, 2}}));
    EXPECT_EQ(rows["AÑO"], Value(1));
    EXPECT_EQ(rows["ANO"], Value(2));
}

TEST(RecordsetTest, AnEmptySetIsAtBothEnds) {
    const Recordset rows = none();
    EXPECT_TRUE(rows.isOpen());
    EXPECT_TRUE(rows.eof());
    EXPECT_TRUE(rows.bof());
    EXPECT_FALSE(rows.hasRows());
    EXPECT_EQ(rows.position(), std::nullopt);
}

TEST(RecordsetTest, MovesToBothEndsAndNoFurther) {
    Recordset rows = three();
    rows.moveLast();
    EXPECT_EQ(rows.position(), 2u);
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    EXPECT_FALSE(rows.bof());
    EXPECT_EQ(errorOf([&] { rows.moveNext(); }), 3021);
    rows.movePrevious();
    EXPECT_EQ(rows.position(), 2u);
    rows.moveFirst();
    rows.movePrevious();
    EXPECT_TRUE(rows.bof());
    EXPECT_FALSE(rows.eof());
    EXPECT_EQ(errorOf([&] { rows.movePrevious(); }), 3021);
    rows.moveNext();
    EXPECT_EQ(rows.position(), 0u);
    rows.moveTo(7);
    EXPECT_TRUE(rows.eof());
}

TEST(RecordsetTest, ErrorsHaveTheirNumbers) {
    Recordset rows = three();
    EXPECT_EQ(errorOf([&] { rows["Otro"]; }), 3265);
    EXPECT_EQ(errorOf([&] { rows[std::size_t{3}]; }), 3265);
    rows.moveTo(3);
    EXPECT_EQ(errorOf([&] { rows["Id"]; }), 3021);
    EXPECT_EQ(errorOf([&] { rows.find("Id=1"); }), 3021);
    Recordset empty = none();
    EXPECT_EQ(errorOf([&] { empty.moveFirst(); }), 3021);
    EXPECT_EQ(errorOf([&] { empty.moveLast(); }), 3021);
    EXPECT_EQ(errorOf([&] { empty["Id"]; }), 3021);
    Recordset closed;
    EXPECT_FALSE(closed.isOpen());
    EXPECT_EQ(errorOf([&] { closed.eof(); }), 3704);
    EXPECT_EQ(errorOf([&] { closed.moveNext(); }), 3704);
    EXPECT_EQ(errorOf([&] { closed["Id"]; }), 3704);
    EXPECT_EQ(errorOf([&] { closed.clone(); }), 3704);
}

TEST(RecordsetTest, FindGoesForwardFromTheCurrentRow) {
    Recordset rows = three();
    rows.find("Id=3");
    EXPECT_EQ(rows.position(), 2u);
    rows.find("id = 1");
    EXPECT_TRUE(rows.eof());
    rows.moveFirst();
    rows.find("[NOMBRE] = 'dÓs'");
    EXPECT_EQ(rows.position(), 1u);
    rows.find(" Id = 2.0 ");
    EXPECT_EQ(rows.position(), 1u);
}

TEST(RecordsetTest, FindRefusesOtherCriteria) {
    Recordset rows = three();
    for (const char* criterion :
         {"", "Id", "Id=", "=1", "Id>1", "Id=1 and Nombre='x'", "Nombre='x", "Nombre=x", "Id<>1", "Nombre='a'b'"}) {
        EXPECT_EQ(errorOf([&] { rows.find(criterion); }), 3001) << criterion;
    }
    EXPECT_EQ(errorOf([&] { rows.find("Otro=1"); }), 3265);
    EXPECT_EQ(rows.position(), 0u);
}

TEST(RecordsetTest, CopiesShareTheCursorAndClonesDoNot) {
    Recordset rows = three();
    Recordset copy = rows;
    Recordset clone = rows.clone();
    rows.moveNext();
    EXPECT_EQ(copy.position(), 1u);
    EXPECT_EQ(clone.position(), 0u);
    EXPECT_TRUE(copy == rows);
    EXPECT_FALSE(clone == rows);
}

TEST(RecordsetTest, ListenersHearEveryMoveInOrder) {
    Recordset rows = three();
    std::string heard;
    auto first = rows.onMoveComplete([&] { heard += "a"; });
    const auto second = rows.onMoveComplete([&] { heard += "b"; });
    rows.moveNext();
    EXPECT_EQ(heard, "ab");
    first.reset();
    rows.moveLast();
    rows.movePrevious();
    rows.moveTo(1);
    rows.find("Id=3");
    rows.requery();
    EXPECT_EQ(heard, "abbbbbb");
}

TEST(RecordsetTest, ACloneIsHeardByNobody) {
    Recordset rows = three();
    int heard = 0;
    const auto listener = rows.onMoveComplete([&] { ++heard; });
    rows.clone().moveLast();
    EXPECT_EQ(heard, 0);
}

TEST(RecordsetTest, AListenerMayLetGoWhileItIsCalled) {
    Recordset rows = three();
    int heard = 0;
    Subscription self;
    self = rows.onMoveComplete([&] {
        ++heard;
        self.reset();
    });
    rows.moveNext();
    rows.moveNext();
    EXPECT_EQ(heard, 1);
}

TEST(RecordsetTest, PeekDoesNotMove) {
    Recordset rows = three();
    int heard = 0;
    const auto listener = rows.onMoveComplete([&] { ++heard; });
    ASSERT_NE(rows.peek(2), nullptr);
    EXPECT_EQ((*rows.peek(2))[0], Value(3));
    EXPECT_EQ(rows.peek(3), nullptr);
    EXPECT_EQ(rows.position(), 0u);
    EXPECT_EQ(heard, 0);
}

TEST(ListenedRecordsetTest, OpeningIsHeardAlsoOfAnEmptySet) {
    ListenedRecordset rows;
    int heard = 0;
    rows.onMoveComplete = [&] { ++heard; };
    rows = three();
    EXPECT_EQ(heard, 1);
    rows = none();
    EXPECT_EQ(heard, 2);
    rows = Recordset();
    EXPECT_EQ(heard, 2);
}

TEST(ListenedRecordsetTest, HearsItsOwnSetAndNoLongerTheOneBefore) {
    ListenedRecordset rows;
    int heard = 0;
    Recordset before = three();
    rows.onMoveComplete = [&] { ++heard; };
    rows = before;
    rows->moveNext();
    EXPECT_EQ(heard, 2);
    before.moveNext();
    EXPECT_EQ(heard, 3) << "a copy shares the cursor";
    rows = three();
    before.moveFirst();
    EXPECT_EQ(heard, 4);
    rows->clone().moveLast();
    EXPECT_EQ(heard, 4);
}

TEST(ListenedRecordsetTest, TheHandlerSeesTheNewSet) {
    ListenedRecordset rows;
    std::vector<bool> empty;
    rows.onMoveComplete = [&] { empty.push_back(!rows->hasRows()); };
    rows = three();
    rows = none();
    EXPECT_EQ(empty, (std::vector<bool>{false, true}));
}

namespace {

class RecordingConnection final : public Connection {
  public:
    Recordset execute(std::string_view) override { return {}; }
    void beginTrans() override { log += "begin "; }
    void commitTrans() override {
        log += "commit ";
        if (refuses) {
            throw DbError(provider::failure, "no");
        }
    }
    void rollbackTrans() override {
        log += "rollback ";
        if (refuses) {
            throw DbError(provider::failure, "no");
        }
        if (breaks) {
            throw std::runtime_error("no error of the database");
        }
    }
    std::string currentCatalog() const override { return "VELMORA"; }
    bool isAlive() override { return true; }

    std::string log;
    bool refuses = false;
    bool breaks = false;  ///< the rollback
};

}  // namespace

TEST(TransactionTest, RollsBackUnlessEnded) {
    RecordingConnection connection;
    { const Transaction transaction(connection); }
    EXPECT_EQ(connection.log, "begin rollback ");
    connection.log.clear();
    { Transaction(connection).commit(); }
    EXPECT_EQ(connection.log, "begin commit ");
    connection.log.clear();
    { Transaction(connection).rollback(); }
    EXPECT_EQ(connection.log, "begin rollback ");
}

TEST(TransactionTest, AFailedCommitIsNotRolledBackAgain) {
    RecordingConnection connection;
    connection.refuses = true;
    EXPECT_THROW(Transaction(connection).commit(), DbError);
    EXPECT_EQ(connection.log, "begin commit ");
}

TEST(RecordsetTest, RowsThatNoEngineHoldsAreNotUpdated) {
    Recordset rows(rowsInMemory({{"a"}, {"doc"}}, {{Value(1), Value()}}));
    const auto refusal = [&](auto&& column) {
        try {
            rows.updateBinary(column, Bytes{std::byte{1}});
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0L;
    };
    EXPECT_EQ(refusal("doc"), 3251);
    EXPECT_EQ(refusal("other"), 3265);
    EXPECT_EQ(refusal(std::size_t{2}), 3265);
    rows.moveNext();
    EXPECT_EQ(refusal("doc"), 3021);
    rows = {};
    EXPECT_EQ(refusal("doc"), 3704);
}

TEST(TransactionTest, ADestructorDoesNotThrow) {
    RecordingConnection connection;
    connection.refuses = true;
    EXPECT_NO_THROW({ const Transaction transaction(connection); });
    connection.refuses = false;
    connection.breaks = true;
    EXPECT_NO_THROW({ const Transaction transaction(connection); });
}

TEST(TransactionTest, WhateverEndsItEarlyRollsBack) {
    RecordingConnection connection;
    try {
        const Transaction transaction(connection);
        throw std::runtime_error("no error of the language");
    } catch (const std::runtime_error&) {
        connection.log += "seen ";
    }
    EXPECT_EQ(connection.log, "begin rollback seen ");
}

TEST(ForwardingConnectionTest, PassesEverythingOn) {
    RecordingConnection target;
    ForwardingConnection connection(target);
    connection.beginTrans();
    connection.commitTrans();
    connection.beginTrans();
    connection.rollbackTrans();
    EXPECT_EQ(target.log, "begin commit begin rollback ");
    EXPECT_EQ(connection.currentCatalog(), "VELMORA");
    EXPECT_TRUE(connection.isAlive());
    EXPECT_FALSE(connection.execute("x").isOpen());
}

namespace {

/// Rows of which only the first can be read.
class BrokenRows final : public RowSource {
  public:
    const std::vector<Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override {
        if (position >= 2) {
            throw DbError(provider::failure, "No se puede leer.");
        }
        return true;
    }
    const Row& row(std::size_t position) override { return rows_[position]; }
    std::size_t rowCount() override { return 4; }
    std::unique_ptr<RowSource> reopen() const override { throw DbError(provider::failure, "No se puede leer."); }

  private:
    std::vector<Column> columns_{{"Id"}};
    std::vector<Row> rows_{{1}, {2}};
};

}  // namespace

TEST(RecordsetTest, ARowThatCannotBeReadLeavesTheCurrentRow) {
    Recordset rows(std::make_unique<BrokenRows>());
    rows.moveNext();
    int heard = 0;
    const Subscription listening = rows.onMoveComplete([&] { ++heard; });
    const std::vector<std::function<void()>> moves = {[&] { rows.moveNext(); }, [&] { rows.moveLast(); },
                                                      [&] { rows.moveTo(3); }, [&] { rows.find("Id = 9"); },
                                                      [&] { rows.requery(); }};
    for (const auto& move : moves) {
        EXPECT_EQ(errorOf(move), provider::failure);
        EXPECT_EQ(rows.position(), 1u);
        EXPECT_EQ(rows["Id"], Value(2));
    }
    EXPECT_EQ(heard, 0);
}

TEST(RecordsetTest, ACloneKeepsItsRowsWhenTheSetIsQueriedAnew) {
    class Counted final : public RowSource {
      public:
        explicit Counted(int opened) : rows_{{opened}, {opened + 1}} {}
        const std::vector<Column>& columns() const override { return columns_; }
        bool hasRow(std::size_t position) override { return position < rows_.size(); }
        const Row& row(std::size_t position) override { return rows_[position]; }
        std::size_t rowCount() override { return rows_.size(); }
        std::unique_ptr<RowSource> reopen() const override {
            return std::make_unique<Counted>(rows_.front().front().toLong() + 10);
        }

      private:
        std::vector<Column> columns_{{"Id"}};
        std::vector<Row> rows_;
    };
    Recordset rows(std::make_unique<Counted>(0));
    Recordset clone = rows.clone();
    clone.moveNext();
    rows.requery();
    EXPECT_EQ(rows["Id"], Value(10));
    EXPECT_EQ(clone["Id"], Value(1));
    clone.moveFirst();
    EXPECT_EQ(clone["Id"], Value(0));
}

}  // namespace velmora::sql
