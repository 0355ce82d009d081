// A set holds its rows, their order and their values from its opening to its requery, whoever writes what meanwhile.

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "connection_contract.h"

namespace velmora::test {

namespace {

using sql::Recordset;
using sql::Value;

/// A set that fits a screen, one that a reader may hold whole, and one that it need not.
constexpr std::array sizes{10, 300, 1300};

/// Rows of the key and a text.
struct Row {
    int key;
    std::string text;
    friend bool operator==(const Row&, const Row&) = default;
};

std::vector<Row> rowsMade(int count) {
    std::vector<Row> rows;
    for (int i = 0; i < count; ++i) {
        rows.push_back({.key = 10 * i, .text = "fila " + std::to_string(i)});
    }
    return rows;
}

void make(sql::Connection& connection, const std::vector<Row>& rows) {
    connection.execute("CREATE TABLE T_List (k int NOT NULL, t nvarchar(40))");
    sql::Transaction transaction(connection);
    for (std::size_t from = 0; from < rows.size(); from += 500) {
        std::string values;
        for (std::size_t i = from; i < std::min(from + 500, rows.size()); ++i) {
            values += (values.empty() ? "(" : ", (") + std::to_string(rows[i].key) + ", N'" + rows[i].text + "')";
        }
        connection.execute("insert into T_List (k, t) values " + values);
    }
    transaction.commit();
}

/// The list in the order of its keys.
Recordset open(sql::Connection& connection) {
    return connection.execute("select k, t from T_List order by k");
}

Row current(const Recordset& rows) {
    return {.key = rows["k"].toLong(), .text = rows["t"].toText()};
}

std::vector<Row> forward(Recordset& rows) {
    std::vector<Row> all;
    if (rows.hasRows()) {
        rows.moveFirst();
    }
    for (; !rows.eof(); rows.moveNext()) {
        all.push_back(current(rows));
    }
    return all;
}

std::vector<Row> backward(Recordset& rows) {
    std::vector<Row> all;
    if (rows.hasRows()) {
        rows.moveLast();
    }
    for (; !rows.bof(); rows.movePrevious()) {
        all.push_back(current(rows));
    }
    std::reverse(all.begin(), all.end());
    return all;
}

/// That the set is these rows, however one goes through it.
void expectRows(Recordset rows, const std::vector<Row>& expected) {
    EXPECT_EQ(rows.recordCount(), expected.size());
    EXPECT_TRUE(forward(rows) == expected) << "from the first to the last";
    EXPECT_TRUE(backward(rows) == expected) << "from the last to the first";
    for (const std::size_t place : {std::size_t{7}, expected.size() / 2, expected.size() - 1, std::size_t{0}}) {
        const sql::Row* row = rows.peek(place);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ((*row)[0], Value(expected[place].key));
    }
    EXPECT_EQ(rows.peek(expected.size()), nullptr);
}

/// What happens to the table while a set is open, around the row of this key in the middle of `count` rows.
struct Disturbance {
    const char* name;
    std::vector<std::string> (*statements)(int key, int count);
};

std::string number(int value) {
    return std::to_string(value);
}

constexpr std::array disturbances{
    Disturbance{"a row is inserted before",
                [](int, int) { return std::vector<std::string>{"insert into T_List (k, t) values (-5, N'nueva')"}; }},
    Disturbance{"many rows are inserted before",
                [](int key, int) {
                    return std::vector<std::string>{
                        "insert into T_List (k, t) select k - 100000, t from T_List "
                        "where k < " +
                        number(key)};
                }},
    Disturbance{"the row is deleted under the cursor",
                [](int key, int) { return std::vector<std::string>{"delete from T_List where k = " + number(key)}; }},
    Disturbance{"all rows before are deleted",
                [](int key, int) { return std::vector<std::string>{"delete from T_List where k < " + number(key)}; }},
    Disturbance{"all rows are deleted", [](int, int) { return std::vector<std::string>{"delete from T_List"}; }},
    Disturbance{"a row from behind is moved before the cursor",
                [](int key, int count) {
                    return std::vector<std::string>{"update T_List set k = " + number(key) +
                                                    " - 5 where k = " + number(10 * (count - 1))};
                }},
    Disturbance{"a row from before is moved behind the cursor",
                [](int, int count) {
                    return std::vector<std::string>{"update T_List set k = " + number(10 * count) + " where k = 0"};
                }},
    Disturbance{"the order is turned round",
                [](int, int) { return std::vector<std::string>{"update T_List set k = 0 - k"}; }},
    Disturbance{"every value is another one",
                [](int, int) { return std::vector<std::string>{"update T_List set t = N'otra'"}; }},
    Disturbance{"one thing after the other",
                [](int key, int) {
                    return std::vector<std::string>{"insert into T_List (k, t) values (-5, N'nueva')",
                                                    "update T_List set t = N'otra' where k > " + number(key),
                                                    "delete from T_List where k = " + number(key),
                                                    "insert into T_List (k, t) values (" + number(key) + ", N'otra')"};
                }},
};

using Writing = void (*)(sql::Connection&, const std::vector<std::string>&);

void write(sql::Connection& connection, const std::vector<std::string>& statements) {
    for (const std::string& statement : statements) {
        connection.execute(statement);
    }
}

void writeInATransaction(sql::Connection& connection, const std::vector<std::string>& statements) {
    sql::Transaction transaction(connection);
    write(connection, statements);
    transaction.commit();
}

void writeAndUndo(sql::Connection& connection, const std::vector<std::string>& statements) {
    sql::Transaction transaction(connection);
    write(connection, statements);
    transaction.rollback();
}

/// What somebody has done with a set before it is disturbed.
struct Use {
    const char* name;
    void (*of)(Recordset& rows, int key);
};

constexpr std::array uses{
    Use{"just opened", [](Recordset&, int) {}},
    Use{"after moving", [](Recordset& rows, int key) { rows.moveTo(static_cast<std::size_t>(key / 10)); }},
    Use{"after find", [](Recordset& rows, int key) { rows.find("k = " + number(key)); }},
    Use{"after moveLast", [](Recordset& rows, int) { rows.moveLast(); }},
    Use{"after walking to the end and back",
        [](Recordset& rows, int) {
            forward(rows);
            backward(rows);
            rows.moveFirst();
        }},
    Use{"after an export of a clone",
        [](Recordset& rows, int) {
            Recordset clone = rows.clone();
            forward(clone);
        }},
};

/// One table, one set, one disturbance, by `writer`; then who holds the set sees the same rows as before.
void expectKept(sql::Connection& reader, sql::Connection& writer, Writing writing, int size, const Use& use,
                const Disturbance& disturbance) {
    SCOPED_TRACE(number(size) + " rows, " + use.name + ", " + disturbance.name);
    const std::vector<Row> rows = rowsMade(size);
    const int key = rows[static_cast<std::size_t>(size / 2)].key;
    make(writer, rows);
    Recordset set = open(reader);
    use.of(set, key);
    const auto position = set.position();
    const Row shown = current(set);
    Recordset clone = set.clone();

    writing(writer, disturbance.statements(key, size));

    EXPECT_EQ(set.position(), position);
    EXPECT_EQ(current(set), shown) << "the current row stays the current row";
    clone.find("k = " + number(key));
    EXPECT_EQ(current(clone), rows[static_cast<std::size_t>(size / 2)]);
    expectRows(set, rows);
    expectRows(set.clone(), rows);
    writer.execute("DROP TABLE T_List");
}

void expectKept(sql::Connection& reader, sql::Connection& writer, Writing writing) {
    for (const int size : sizes) {
        for (const Disturbance& disturbance : disturbances) {
            expectKept(reader, writer, writing, size, uses.front(), disturbance);
        }
        for (const Use& use : uses) {
            expectKept(reader, writer, writing, size, use, disturbances.back());
        }
    }
}

}  // namespace

TEST_P(ConnectionContract, ASetKeepsItsRowsBesideOwnWrites) {
    expectKept(*connection_, *connection_, write);
}

TEST_P(ConnectionContract, ASetKeepsItsRowsBesideAnOwnTransaction) {
    expectKept(*connection_, *connection_, writeInATransaction);
}

TEST_P(ConnectionContract, ASetKeepsItsRowsBesideAnOwnTransactionThatIsUndone) {
    expectKept(*connection_, *connection_, writeAndUndo);
}

TEST_P(SharedDatabaseContract, ASetKeepsItsRowsWhateverAnotherClientWrites) {
    expectKept(*connection_, *other_, write);
}

TEST_P(SharedDatabaseContract, ASetKeepsItsRowsBesideAnotherClientsTransaction) {
    expectKept(*connection_, *other_, writeInATransaction);
}

TEST_P(ConnectionContract, ASetOpenedInATransactionKeepsItsRowsAfterwards) {
    for (const int size : sizes) {
        for (const bool undone : {false, true}) {
            SCOPED_TRACE(number(size) + (undone ? " rows, undone" : " rows, committed"));
            std::vector<Row> rows = rowsMade(size);
            make(*connection_, rows);
            connection_->beginTrans();
            execute("update T_List set t = N'dentro' where k = 20");
            rows[2].text = "dentro";
            Recordset set = open(*connection_);
            set.moveTo(3);
            execute("insert into T_List (k, t) values (-5, N'nueva')");
            EXPECT_EQ(current(set), rows[3]);
            undone ? connection_->rollbackTrans() : connection_->commitTrans();
            expectRows(set.clone(), rows);
            execute("delete from T_List");
            expectRows(set, rows);
            execute("DROP TABLE T_List");
        }
    }
}

TEST_P(ConnectionContract, RequeryShowsWhatWasWrittenMeanwhile) {
    for (const int size : sizes) {
        SCOPED_TRACE(size);
        std::vector<Row> rows = rowsMade(size);
        make(*connection_, rows);
        Recordset set = open(*connection_);
        set.moveTo(5);
        Recordset clone = set.clone();
        execute("delete from T_List where k = 50");
        execute("insert into T_List (k, t) values (-5, N'nueva')");
        set.requery();
        EXPECT_EQ(set.position(), 0u);
        expectRows(clone, rows);
        rows.erase(rows.begin() + 5);
        rows.insert(rows.begin(), {.key = -5, .text = "nueva"});
        expectRows(set, rows);
        execute("DROP TABLE T_List");
    }
}

TEST_P(ConnectionContract, SetsOfSeveralMomentsStandSideBySide) {
    make(*connection_, rowsMade(1000));
    std::vector<Recordset> sets;
    for (int i = 0; i < 5; ++i) {
        sets.push_back(execute("select t, k from T_List order by k"));
        execute("update T_List set t = N'vez " + number(i + 1) + "'");
    }
    for (int i = 0; i < 5; ++i) {
        for (const std::size_t place : {0u, 999u, 500u, 33u}) {
            const sql::Row* row = sets[static_cast<std::size_t>(i)].peek(place);
            ASSERT_NE(row, nullptr);
            EXPECT_EQ((*row)[0], Value(i == 0 ? "fila " + std::to_string(place) : "vez " + number(i)));
        }
    }
}

TEST_P(ConnectionContract, ASetKeepsItsRowsWhenItsTableIsDropped) {
    const std::vector<Row> rows = rowsMade(1000);
    make(*connection_, rows);
    Recordset set = open(*connection_);
    execute("DROP TABLE T_List");
    expectRows(set, rows);
}

TEST_P(ConnectionContract, TheTimeInASetIsThatOfItsOpening) {
    make(*connection_, rowsMade(3000));
    Recordset set = execute("select k, getdate() as d from T_List order by k");
    const Value opened = set["d"];
    for (const std::size_t place : {2999u, 0u, 1500u, 20u}) {
        EXPECT_EQ((*set.peek(place))[1], opened);
    }
    execute("delete from T_List");
    EXPECT_EQ((*set.peek(1600))[1], opened);
}

TEST_P(ConnectionContract, WhatIsWrittenThroughALongSetStaysInIt) {
    execute("CREATE TABLE T_Files (k int IDENTITY (1, 1) PRIMARY KEY, doc image)");
    execute("insert into T_Files (doc) values (Null)");
    for (int i = 0; i < 12; ++i) {
        execute("insert into T_Files (doc) select doc from T_Files");
    }
    Recordset set = execute("select k, doc from T_Files order by k");
    Recordset clone = set.clone();
    const sql::Bytes written{std::byte{1}, std::byte{2}};
    for (const std::size_t place : {3u, 700u, 4000u}) {
        set.moveTo(place);
        set.updateBinary("doc", written);
        EXPECT_EQ(set["doc"], Value(written));
    }
    execute("update T_Files set doc = Null");
    for (const std::size_t place : {4000u, 3u, 2000u, 700u}) {
        EXPECT_EQ((*clone.peek(place))[1], place == 2000 ? Value() : Value(written)) << place;
    }
    set.requery();
    set.moveTo(700);
    EXPECT_TRUE(set["doc"].isNull());
}

}  // namespace velmora::test
