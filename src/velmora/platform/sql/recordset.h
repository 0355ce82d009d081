#pragma once
// Result sets: snapshots whose rows are read on demand. A Recordset is a handle: copies share one cursor, a clone has a
// cursor of its own.

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
    std::string name;  ///< spelled as in the statement
};

/// What an engine implements behind a recordset: the rows as of the moment of opening, by position. They are read on
/// demand with a bounded number in memory, and no later change of the database, by this connection or another, alters
/// rows, order or values: a row that is read again is the same. An open source blocks no writer. The only exception is
/// updateBinary, which changes the set as well. Errors: DbError when rows cannot be read; an engine that can no longer
/// give the rows of that moment raises an error and never gives others.
class RowSource {
  public:
    virtual ~RowSource() = default;
    virtual const std::vector<Column>& columns() const = 0;
    /// True when there is a row at this 0-based position; reads no further than needed.
    virtual bool hasRow(std::size_t position) = 0;
    /// The row at a position that hasRow accepted. Valid until the next call on this source.
    virtual const Row& row(std::size_t position) = 0;
    /// Number of all rows of the set; may have to read them.
    virtual std::size_t rowCount() = 0;
    /// Runs the same statement again, which gives the current rows.
    virtual std::unique_ptr<RowSource> reopen() const = 0;
    /// Recordset::updateBinary for the row at a position that hasRow accepted. The default implementation refuses.
    virtual void updateBinary(std::size_t position, std::size_t column, Bytes content);

  protected:
    /// Error 3251.
    [[noreturn]] static void refuseUpdate();
};

/// Rows that are already in memory: for tests and for sets without a statement.
std::unique_ptr<RowSource> rowsInMemory(std::vector<Column> columns, std::vector<Row> rows);

/// The listener's handle of a subscription; releasing it ends the subscription.
using Subscription = std::shared_ptr<void>;

/// A cursor over a row source, modelled on ADO: opening moves to the first row, or to the end of an empty set. From
/// opening to requery() the set keeps the rows, order and values of the moment of opening, whatever any client does.
/// The displayed row may therefore have been changed or deleted in the database: code that writes must read the row by
/// its key first. Reading a field without a current row is error 3021; an unknown column is error 3265; any use of a
/// closed set is error 3704.
class Recordset {
  public:
    Recordset() = default;  ///< a new, closed set
    explicit Recordset(std::unique_ptr<RowSource> source);

    bool isOpen() const { return cursor_ != nullptr; }
    bool eof() const;
    bool bof() const;
    /// True when there is at least one row: not both bof and eof.
    bool hasRows() const;

    /// Column by name in any case (the first of that name), or by 0-based position.
    const Value& operator[](std::string_view column) const;
    const Value& operator[](std::size_t column) const;
    const std::vector<Column>& columns() const;

    void moveFirst();
    void moveNext();
    void movePrevious();
    void moveLast();
    /// Moves to a 0-based position; past the last row, to eof.
    void moveTo(std::size_t position);
    /// 0-based position of the current row; none at either end.
    std::optional<std::size_t> position() const;
    std::size_t recordCount() const;

    /// Searches forward from the current row, which is included, for "COLUMN = number" or "COLUMN = 'text'"; moves to
    /// eof when no row matches. A criterion of another form is error 3001.
    void find(std::string_view criterion);

    /// A second cursor on the same rows, which moves on its own and starts without listeners. It keeps the rows when
    /// this set is queried again.
    Recordset clone() const;
    /// Runs the statement again and moves to the first of the current rows. When the statement fails, the set stays as
    /// it was.
    void requery();

    /// The values of any row without moving; nullptr when there is no such row. Valid until the next call.
    const Row* peek(std::size_t position) const;

    /// Writes a binary column of the current row to the database and to this set. Returns after the engine has stored
    /// and verified the whole content. Part of an open transaction if there is one, durable otherwise. Meant for
    /// contents too large for the text of a statement (files of 50 MB and more); everything else is written by
    /// statements. An empty content is stored as such, not as null. Listeners are not called, because the cursor does
    /// not move.
    /// Errors: 3251 unless the set is a plain select (no DISTINCT, GROUP BY or join) from one table, includes that
    /// table's single-column key, and the column is a binary one of the table; 3021 without a current row; 3265 for an
    /// unknown column; DbError: provider::rowGone when the row no longer exists, or the engine's refusal.
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

/// A recordset variable whose owner is notified: assigning an open set, empty or not, and every later change of its
/// current row call the handler. Assigning a closed set does not.
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
