#include "velmora/adapters/sqlite/row_source.h"

#include <iterator>
#include <utility>

#include "velmora/adapters/sqlite/engine.h"
#include "velmora/adapters/sqlite/errors.h"

namespace velmora::sqlite {

Rows::Rows(std::shared_ptr<Engine> engine, std::shared_ptr<const CachedStatement> statement,
           std::vector<sql::Row> first, std::shared_ptr<OpenRows> others)
    : engine_(std::move(engine)),
      statement_(std::move(statement)),
      others_(std::move(others)),
      window_(std::move(first)) {
    if (!others_) {
        count_ = window_.size();
    }
}

Rows::~Rows() {
    if (others_) {
        others_->close();
    }
}

bool Rows::hasRow(std::size_t position) {
    if (inWindow(position)) {
        return true;
    }
    return !(count_ && position >= *count_) && fetch(position);
}

const sql::Row& Rows::row(std::size_t position) {
    if (!inWindow(position) && !fetch(position)) {
        throw sql::DbError(sql::provider::failure, "La fila no está en el conjunto de registros.");
    }
    return window_[position - first_];
}

std::size_t Rows::rowCount() {
    if (!count_) {
        count_ = others_->count();
        if (*count_ > 0 && *count_ <= windowRows) {
            hasRow(*count_ - 1);
        }
    }
    return *count_;
}

std::unique_ptr<sql::RowSource> Rows::reopen() const {
    return engine_->openRows(statement_->text);
}

void Rows::updateBinary(std::size_t position, std::size_t column, sql::Bytes content) {
    const std::optional<Origin>& origin = statement_->translation->origin;
    const bool binary = statement_->translation->types[column].kind == tsql::Kind::binary;
    if (!origin || !binary || origin->columns[column].empty()) {
        refuseUpdate();
    }
    const sql::Value key = row(position)[origin->key];
    if (!key.isWhole() && !key.isText()) {
        refuseUpdate();
    }
    try {
        engine_->updateBinary(*origin, column, key, content);
    } catch (const sql::DbError& error) {
        throw withStatement(error, statement_->text);
    }
    if (others_) {
        written_[position][column] = content;
    }
    window_[position - first_][column] = std::move(content);
}

/// Moves the window so that it holds the position and some rows before it, for moves backwards; false when the set
/// ends before the position.
bool Rows::fetch(std::size_t position) {
    if (!others_) {
        return false;
    }
    const bool back = position < first_;
    const std::size_t before = back ? windowRows / 2 : windowRows / 4;
    // The first window begins with the first row: a set that fits in is held whole and releases the database.
    const std::size_t wanted = position < windowRows ? 0 : position - before;
    const std::size_t behind = first_ + window_.size();
    // Rows that the window has already stay in it; the reading goes on behind them.
    const bool overlaps = wanted >= first_ && wanted < behind;
    const std::size_t from = overlaps ? behind : wanted;
    OpenRows::Part read = others_->read(from, wanted + windowRows - from);
    if (read.end) {
        count_ = read.end;
    }
    showWritten(from, read.rows);
    if (overlaps) {
        window_.erase(window_.begin(), window_.begin() + static_cast<std::ptrdiff_t>(wanted - first_));
        window_.insert(window_.end(), std::make_move_iterator(read.rows.begin()),
                       std::make_move_iterator(read.rows.end()));
        first_ = wanted;
    } else if (!read.rows.empty()) {
        window_ = std::move(read.rows);
        first_ = wanted;
    }
    letGoWhenComplete();
    return inWindow(position);
}

void Rows::letGoWhenComplete() {
    if (count_ && first_ == 0 && window_.size() == *count_) {
        others_->close();
        others_.reset();
        written_.clear();
    }
}

void Rows::showWritten(std::size_t from, std::vector<sql::Row>& rows) const {
    for (auto row = written_.lower_bound(from); row != written_.end() && row->first - from < rows.size(); ++row) {
        for (const auto& [column, content] : row->second) {
            rows[row->first - from][column] = content;
        }
    }
}

}  // namespace velmora::sqlite
