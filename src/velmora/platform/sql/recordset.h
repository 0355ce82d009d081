#pragma once
// Result sets: kept rows, read on demand. A Recordset is a handle: copies share one cursor, a clone has a cursor of its
// own.

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/value.h"

namespace velmora::sql {

struct Column {
    std::string name;  ///< as the statement spells it
};

/// What an engine supplies behind a recordset: the rows of the moment at which it was opened, by position. They are
/// read as they are asked for, with a bounded number in memory, and whoever changes the database meanwhile, this
/// connection included, changes neither rows nor order nor values: a row read again is the same row. Nor does an open
/// source hold up anybody who writes. The only change is what updateBinary writes. Errors: DbError, when rows cannot be
/// read; an engine that can no longer answer the rows of that moment says so and never gives others.
class RowSource {
  public:
    virtual ~RowSource() = default;
    virtual const std::vector<Column>& columns() const = 0;
    /// True when there is a row at this 0-based position; reads no further than needed.
    virtual bool hasRow(std::size_t position) = 0;
    /// The row at a position that hasRow accepted. Valid until the next call on this source.
    virtual const Row& row(std::size_t position) = 0;
    /// All rows of the set; may have to count them.
    virtual std::size_t rowCount() = 0;
    /// The same statement run again: the rows of now.
    virtual std::unique_ptr<RowSource> reopen() const = 0;
    /// Recordset::updateBinary for the row at a position that hasRow accepted. A source that does not override it
    /// refuses.
    virtual void updateBinary(std::size_t position, std::size_t column, Bytes content);

  protected:
    /// Error 3251.
    [[noreturn]] static void refuseUpdate();
};

/// Rows that are already in memory: for tests and for sets that no statement made.
std::unique_ptr<RowSource> rowsInMemory(std::vector<Column> columns, std::vector<Row> rows);

/// The listener's end of a subscription; letting go of it ends it.
using Subscription = std::shared_ptr<void>;

/// A cursor over a row source, after ADO: opening stands on the first row, or at the end of an empty set. From opening
/// to requery() the set holds the rows, their order and their values of the moment of opening, and the current row
/// stays the current row, whatever any client does. What a set shows may have been changed or deleted in the database:
/// whoever writes looks at the row by its key first. A field read with no current row is error 3021; an unknown column
/// error 3265; any use of a closed set error 3704.
class Recordset {
  public:
    Recordset() = default;  ///< a new, closed set
    explicit Recordset(std::unique_ptr<RowSource> source);

    bool isOpen() const { return cursor_ != nullptr; }
    bool eof() const;
    bool bof() const;
    /// Not (eof and bof): there is at least one row.
    bool hasRows() const;

    /// Column by name in any case (the first of that name), or by 0-based position.
    const Value& operator[](std::string_view column) const;
    const Value& operator[](std::size_t column) const;
    const std::vector<Column>& columns() const;

    void moveFirst();
    void moveNext();
    void movePrevious();
    void moveLast();
    /// To a 0-based position; past the end stands at eof.
    void moveTo(std::size_t position);
    /// 0-based position of the current row; none at either end.
    std::optional<std::size_t> position() const;
    std::size_t recordCount() const;

    /// From the current row forward to the first row for which "COLUMN = number" or "COLUMN = 'text'" holds; with
    /// none stands at eof. A criterion of another form is error 3001.
    void find(std::string_view criterion);

    /// A second cursor on the same rows, which moves alone and whom nobody listens to. It keeps them when this one is
    /// queried anew.
    Recordset clone() const;
    /// Runs the statement again and holds the rows of now; stands on the first one. When the statement is refused, the
    /// set stays as it was.
    void requery();

    /// The values of any row without moving; none when there is no such row. Valid until the next call.
    const Row* peek(std::size_t position) const;

    /// Writes a binary column of the current row to the database and to this set, whole, and returns when the engine
    /// holds all of it: it has looked at what it stored. Inside a transaction it counts with it, outside it is
    /// durable. This is the one way to write through a set, for what is too large to stand in a statement's text
    /// (files of 50 MB and more); all else is written by statements. An empty content is stored as such, not as null.
    /// Listeners are not called: the row has not moved.
    /// Errors: 3251 unless the set is a plain select (no DISTINCT, GROUP BY or join) from one table, brings along
    /// that table's key of one column, and the column is a binary one of the table; 3021 without a current row; 3265
    /// for an unknown column; DbError: provider::rowGone when the row is no longer there, the engine's refusal.
    void updateBinary(std::string_view column, Bytes content);
    void updateBinary(std::size_t column, Bytes content);

    /// Calls `listener` after every change of the current row, requery included, in order of subscription.
    [[nodiscard]] Subscription onMoveComplete(std::function<void()> listener);

    /// True when both handles share one cursor.
    friend bool operator==(const Recordset&, const Recordset&) = default;

  private:
    struct Cursor;
    Cursor& open() const;
    std::size_t positionOf(std::string_view column) const;
    void moved();
    std::shared_ptr<Cursor> cursor_;
};

/// A recordset variable whose owner listens: opening a set in it, empty or not, and every later change of its
/// current row calls the handler. Putting a closed set in it calls nobody.
class ListenedRecordset {
  public:
    std::function<void()> onMoveComplete;

    ListenedRecordset() = default;
    ListenedRecordset(const ListenedRecordset&) = delete;
    ListenedRecordset& operator=(const ListenedRecordset&) = delete;
    ListenedRecordset& operator=(Recordset recordset);
    Recordset* operator->() { return &recordset_; }
    const Recordset* operator->() const { return &recordset_; }
    Recordset& operator*() { return recordset_; }
    const Recordset& operator*() const { return recordset_; }

  private:
    Recordset recordset_;
    Subscription subscription_;
};

}  // namespace velmora::sql
