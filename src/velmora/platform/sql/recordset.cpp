#include "velmora/platform/sql/recordset.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/column_index.h"

namespace velmora::sql {

namespace {

enum CursorError : long {
    criterionNotUnderstood = 3001,
    noCurrentRow = 3021,
    cannotBeUpdated = 3251,
    unknownColumn = 3265,
    closedSet = 3704,
};

[[noreturn]] void fail(CursorError number, std::string description) {
    throw runtime::RuntimeError(number, std::move(description), "VELMORA.Data");
}

[[noreturn]] void failNoCurrentRow() {
    fail(noCurrentRow, "El conjunto de registros no está sobre ningún registro.");
}

class RowsInMemory final : public RowSource {
  public:
    using Rows = std::shared_ptr<const std::vector<Row>>;

    RowsInMemory(std::vector<Column> columns, Rows rows) : columns_(std::move(columns)), rows_(std::move(rows)) {}

    const std::vector<Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override { return position < rows_->size(); }
    const Row& row(std::size_t position) override { return (*rows_)[position]; }
    std::size_t rowCount() override { return rows_->size(); }
    std::unique_ptr<RowSource> reopen() const override { return std::make_unique<RowsInMemory>(columns_, rows_); }

  private:
    std::vector<Column> columns_;
    Rows rows_;
};

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// "COLUMN = number" or "COLUMN = 'text'".
struct Criterion {
    std::string_view column;
    std::variant<double, std::string> wanted;

    static Criterion parse(std::string_view text);
    bool holds(const Value& value) const;
};

Criterion Criterion::parse(std::string_view text) {
    const auto refuse = [&] { fail(criterionNotUnderstood, "Criterio de búsqueda no válido: " + std::string(text)); };
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) {
        refuse();
    }
    Criterion criterion;
    criterion.column = withoutBlanks(text.substr(0, equals));
    if (criterion.column.size() > 1 && criterion.column.front() == '[' && criterion.column.back() == ']') {
        criterion.column = criterion.column.substr(1, criterion.column.size() - 2);
    }
    const std::string_view wanted = withoutBlanks(text.substr(equals + 1));
    if (criterion.column.empty() || criterion.column.find_first_of(" <>'\"") != std::string_view::npos ||
        wanted.empty()) {
        refuse();
    }
    if (wanted.front() == '\'') {
        if (wanted.size() < 2 || wanted.back() != '\'') {
            refuse();
        }
        const std::string_view body = wanted.substr(1, wanted.size() - 2);
        std::string unquoted;
        for (std::size_t i = 0; i < body.size(); ++i) {
            unquoted += body[i];
            if (body[i] == '\'' && (++i == body.size() || body[i] != '\'')) {
                refuse();
            }
        }
        criterion.wanted = std::move(unquoted);
        return criterion;
    }
    double number = 0;
    const auto [end, error] = std::from_chars(wanted.data(), wanted.data() + wanted.size(), number);
    if (error != std::errc() || end != wanted.data() + wanted.size()) {
        refuse();
    }
    criterion.wanted = number;
    return criterion;
}

bool Criterion::holds(const Value& value) const {
    if (const double* number = std::get_if<double>(&wanted)) {
        return value.isNumber() && value.toDouble() == *number;
    }
    return value.isText() && runtime::UCase(value.toText()) == runtime::UCase(std::get<std::string>(wanted));
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): what overrides this may keep the content
void RowSource::updateBinary(std::size_t, std::size_t, Bytes) {
    refuseUpdate();
}

void RowSource::refuseUpdate() {
    fail(cannotBeUpdated, "El conjunto de registros no se puede actualizar.");
}

std::unique_ptr<RowSource> rowsInMemory(std::vector<Column> columns, std::vector<Row> rows) {
    return std::make_unique<RowsInMemory>(std::move(columns),
                                          std::make_shared<const std::vector<Row>>(std::move(rows)));
}

struct Recordset::Cursor {
    enum class Place { before, onRow, after };
    using Listener = std::shared_ptr<std::function<void()>>;

    explicit Cursor(std::shared_ptr<RowSource> rows) : source(std::move(rows)) { toFirst(); }

    void toFirst() { to(0); }

    /// When the row cannot be read, the current row stays as it was.
    void to(std::size_t position) {
        const bool found = source->hasRow(position);
        index = position;
        place = found ? Place::onRow : Place::after;
        foundRow = foundRow || found;
    }

    /// Asks the source only while no row has ever been found: a cursor at the end of a long list must not read it from
    /// the start.
    bool empty() { return !foundRow && !source->hasRow(0); }

    void requireRows() {
        if (empty()) {
            failNoCurrentRow();
        }
    }

    const Row& current() {
        if (place != Place::onRow) {
            failNoCurrentRow();
        }
        return source->row(index);
    }

    std::shared_ptr<RowSource> source;
    Place place = Place::after;
    std::size_t index = 0;
    bool foundRow = false;
    ColumnIndex names;  ///< of the source's columns
    std::vector<std::weak_ptr<std::function<void()>>> listeners;
};

Recordset::Recordset(std::unique_ptr<RowSource> source)
    : cursor_(std::make_shared<Cursor>(std::shared_ptr<RowSource>(std::move(source)))) {}

Recordset::Cursor& Recordset::open() const {
    if (!cursor_) {
        fail(closedSet, "El conjunto de registros está cerrado.");
    }
    return *cursor_;
}

/// Iterates over a copy: a listener may subscribe, unsubscribe or move again. An exception of a listener propagates to
/// the code that moved the cursor, and later listeners are not called.
void Recordset::moved() {
    const std::shared_ptr<Cursor> cursor = cursor_;
    std::erase_if(cursor->listeners, [](const auto& listener) { return listener.expired(); });
    const auto listeners = cursor->listeners;
    for (const auto& listener : listeners) {
        if (const Cursor::Listener alive = listener.lock()) {
            (*alive)();
        }
    }
}

bool Recordset::eof() const {
    Cursor& cursor = open();
    return cursor.place == Cursor::Place::after || cursor.empty();
}

bool Recordset::bof() const {
    Cursor& cursor = open();
    return cursor.place == Cursor::Place::before || cursor.empty();
}

bool Recordset::hasRows() const {
    return !open().empty();
}

std::size_t Recordset::positionOf(std::string_view column) const {
    Cursor& cursor = open();
    const auto position = cursor.names.find(cursor.source->columns(), column);
    if (!position) {
        fail(unknownColumn, "El conjunto de registros no tiene la columna '" + std::string(column) + "'.");
    }
    return *position;
}

const Value& Recordset::operator[](std::string_view column) const {
    const std::size_t position = positionOf(column);
    return open().current()[position];
}

const Value& Recordset::operator[](std::size_t column) const {
    if (column >= open().source->columns().size()) {
        fail(unknownColumn, "El conjunto de registros no tiene tantas columnas.");
    }
    return open().current()[column];
}

const std::vector<Column>& Recordset::columns() const {
    return open().source->columns();
}

void Recordset::moveFirst() {
    open().requireRows();
    open().toFirst();
    moved();
}

void Recordset::moveNext() {
    Cursor& cursor = open();
    if (cursor.place == Cursor::Place::after) {
        failNoCurrentRow();
    }
    cursor.to(cursor.place == Cursor::Place::before ? 0 : cursor.index + 1);
    moved();
}

void Recordset::movePrevious() {
    Cursor& cursor = open();
    cursor.requireRows();
    if (cursor.place == Cursor::Place::before) {
        failNoCurrentRow();
    }
    const std::size_t from = cursor.place == Cursor::Place::after ? cursor.source->rowCount() : cursor.index;
    if (from == 0) {
        cursor.place = Cursor::Place::before;
    } else {
        cursor.to(from - 1);
    }
    moved();
}

void Recordset::moveLast() {
    Cursor& cursor = open();
    cursor.requireRows();
    cursor.to(cursor.source->rowCount() - 1);
    moved();
}

void Recordset::moveTo(std::size_t position) {
    open().to(position);
    moved();
}

std::optional<std::size_t> Recordset::position() const {
    const Cursor& cursor = open();
    return cursor.place == Cursor::Place::onRow ? std::optional(cursor.index) : std::nullopt;
}

std::size_t Recordset::recordCount() const {
    return open().source->rowCount();
}

void Recordset::find(std::string_view criterion) {
    Cursor& cursor = open();
    const Criterion wanted = Criterion::parse(criterion);
    const std::size_t at = positionOf(wanted.column);
    if (cursor.place != Cursor::Place::onRow) {
        failNoCurrentRow();
    }
    std::size_t position = cursor.index;
    while (cursor.source->hasRow(position) && !wanted.holds(cursor.source->row(position)[at])) {
        ++position;
    }
    cursor.to(position);
    moved();
}

Recordset Recordset::clone() const {
    Recordset copy;
    copy.cursor_ = std::make_shared<Cursor>(open().source);
    return copy;
}

void Recordset::requery() {
    Cursor& cursor = open();
    std::shared_ptr<RowSource> fresh = cursor.source->reopen();
    fresh->hasRow(0);
    cursor.source = std::move(fresh);
    cursor.names.forget();
    cursor.foundRow = false;
    cursor.toFirst();
    moved();
}

const Row* Recordset::peek(std::size_t position) const {
    RowSource& source = *open().source;
    return source.hasRow(position) ? &source.row(position) : nullptr;
}

void Recordset::updateBinary(std::string_view column, Bytes content) {
    updateBinary(positionOf(column), std::move(content));
}

void Recordset::updateBinary(std::size_t column, Bytes content) {
    Cursor& cursor = open();
    if (column >= cursor.source->columns().size()) {
        fail(unknownColumn, "El conjunto de registros no tiene tantas columnas.");
    }
    if (cursor.place != Cursor::Place::onRow) {
        failNoCurrentRow();
    }
    cursor.source->updateBinary(cursor.index, column, std::move(content));
}

Subscription Recordset::onMoveComplete(std::function<void()> listener) {
    auto held = std::make_shared<std::function<void()>>(std::move(listener));
    open().listeners.push_back(held);
    return held;
}

ListenedRecordset& ListenedRecordset::operator=(Recordset recordset) {
    subscription_.reset();
    recordset_ = std::move(recordset);
    if (!recordset_.isOpen()) {
        return *this;
    }
    const auto call = [this] {
        if (const auto handler = onMoveComplete) {
            handler();
        }
    };
    subscription_ = recordset_.onMoveComplete(call);
    call();
    return *this;
}

}  // namespace velmora::sql
