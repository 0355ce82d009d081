#include "velmora/adapters/sqlite/row_reader.h"

#include <utility>

#include "velmora/adapters/sqlite/errors.h"

namespace velmora::sqlite {

namespace {

/// To skip at least so many rows, running the statement with an OFFSET is quicker than stepping over them.
constexpr std::size_t rowsWorthPassingOver = 1024;

}  // namespace

RowReader::RowReader(std::shared_ptr<Link> link, std::shared_ptr<const CachedStatement> statement,
                     std::optional<runtime::Date> moment)
    : link_(std::move(link)), cached_(std::move(statement)), moment_(moment) {}

RowReader::~RowReader() {
    stop();
}

std::vector<sql::Row> RowReader::read(std::size_t from, std::size_t most) try {
    const FixedMoment fixed(*link_, moment_);
    std::vector<sql::Row> rows;
    if (goTo(from)) {
        while (rows.size() < most && step()) {
            rows.push_back(current());
        }
    }
    return rows;
} catch (const sql::DbError& error) {
    stop();
    throw withStatement(error, cached_->text);
}

std::size_t RowReader::count() try {
    if (!end_) {
        const FixedMoment fixed(*link_, moment_);
        const auto counting = link_->prepare(cached_->translation->countStatement);
        counting->bind(cached_->values);
        counting->step();
        end_ = static_cast<std::size_t>(counting->whole(0));
    }
    return *end_;
} catch (const sql::DbError& error) {
    throw withStatement(error, cached_->text);
}

void RowReader::stop() {
    if (!statement_) {
        return;
    }
    auto statement = std::move(statement_);
    if (begun_ == 0) {
        link_->giveBack(*cached_, std::move(statement));
    }
}

/// False when the set ends before.
bool RowReader::goTo(std::size_t position) {
    const bool again = !statement_ || position < next_;
    if (isWorthPassingOver(again ? position : position - next_)) {
        startBehind(position);
    } else if (again) {
        start();
    }
    while (next_ < position) {
        if (!step()) {
            return false;
        }
    }
    return true;
}

bool RowReader::isWorthPassingOver(std::size_t rows) const {
    return rows > rowsWorthPassingOver && !cached_->translation->laterRowsStatement.empty();
}

void RowReader::start() {
    stop();
    statement_ = link_->take(*cached_);
    statement_->bind(cached_->values);
    timesPreparedAnew_ = statement_->timesPreparedAnew();
    begun_ = next_ = 0;
}

/// Starts after so many rows, which the engine skips without evaluating their columns.
void RowReader::startBehind(std::size_t rows) {
    stop();
    statement_ = link_->prepare(cached_->translation->laterRowsStatement);
    statement_->bind(cached_->values);
    statement_->bind(static_cast<int>(cached_->values.size()) + 1, static_cast<std::int64_t>(rows));
    timesPreparedAnew_ = statement_->timesPreparedAnew();
    begun_ = next_ = rows;
}

bool RowReader::step() {
    const bool first = next_ == begun_;
    const bool onRow = statement_->step();
    if (first && statement_->timesPreparedAnew() != timesPreparedAnew_) {
        preparedAnew_ = true;
    }
    if (onRow) {
        ++next_;
        return true;
    }
    // Without a row after the skipped ones, the set may have ended anywhere among these.
    if (begun_ == 0 || next_ > begun_) {
        end_ = next_;
    }
    stop();
    return false;
}

sql::Row RowReader::current() const {
    const std::vector<tsql::Type>& types = cached_->translation->types;
    sql::Row row;
    row.reserve(types.size());
    for (std::size_t i = 0; i < types.size(); ++i) {
        row.push_back(statement_->value(static_cast<int>(i), types[i].kind));
    }
    return row;
}

}  // namespace velmora::sqlite
