#include "velmora/adapters/sqlite/row_source.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "velmora/adapters/sqlite/engine.h"
#include "velmora/adapters/sqlite/errors.h"

namespace velmora::sqlite {

namespace {

class Rows final : public sql::RowSource, public Stream {
  public:
    Rows(std::shared_ptr<Engine> engine, std::shared_ptr<CachedStatement> cached)
        : engine_(std::move(engine)), cached_(std::move(cached)) {}
    ~Rows() override { stop(); }

    /// Reads the first rows; false when the engine found its tables changed by another process.
    bool open() {
        start();
        const Statement& reading = *statement_;  // it outlives the reading: the cached statement takes it back
        const int before = reading.timesPreparedAnew();
        fill(openingRows);
        return reading.timesPreparedAnew() == before;
    }

    const std::vector<sql::Column>& columns() const override { return cached_->translation.columns; }

    bool hasRow(std::size_t position) override {
        if (inWindow(position)) {
            return true;
        }
        return !(count_ && position >= *count_) && fetch(position);
    }

    const sql::Row& row(std::size_t position) override {
        if (!inWindow(position) && !fetch(position)) {
            throw sql::DbError(sql::provider::failure, "La fila ya no está en el conjunto de registros.");
        }
        return window_[position - first_];
    }

    std::size_t rowCount() override {
        if (!count_) {
            const auto counting = engine_->prepare(cached_->translation.countStatement);
            counting->step();
            count_ = static_cast<std::size_t>(counting->whole(0));
        }
        return *count_;
    }

    std::unique_ptr<sql::RowSource> reopen() const override { return engine_->openRows(cached_->text); }

    void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override {
        const std::optional<Origin>& origin = cached_->translation.origin;
        const bool binary = cached_->translation.types[column].kind == Kind::binary;
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
            throw withStatement(error, cached_->text);
        }
        if (inWindow(position)) {
            window_[position - first_][column] = std::move(content);
        }
    }

    void park() override {
        if (statement_ && begun_ == 0) {
            engine_->giveBack(*cached_, std::move(statement_));
        }
        statement_.reset();
    }

  private:
    bool inWindow(std::size_t position) const { return position >= first_ && position - first_ < window_.size(); }

    void start() {
        statement_ = engine_->take(*cached_);
        begun_ = next_ = 0;
        engine_->enter(*this);
    }

    /// Starts behind so many rows, which the engine passes over without working out their columns.
    void startBehind(std::size_t rows) {
        statement_ = engine_->prepare(cached_->translation.laterRowsStatement);
        statement_->bind(1, static_cast<std::int64_t>(rows));
        begun_ = next_ = rows;
        engine_->enter(*this);
    }

    bool isWorthPassingOver(std::size_t rows) const {
        return rows > 2 * windowRows && !cached_->translation.laterRowsStatement.empty();
    }

    void stop() {
        engine_->leave(*this);
        park();
    }

    /// Moves the window so that it holds the position, with a quarter of it before, for who walks back; false when
    /// the set ends before.
    bool fetch(std::size_t position) {
        const bool back = position < first_;
        const std::size_t before = back ? windowRows / 2 : windowRows / 4;
        const std::size_t wanted = position > before ? position - before : 0;
        const bool again = !statement_ || position < next_;
        if (isWorthPassingOver(again ? wanted : wanted - std::min(wanted, next_))) {
            stop();
            startBehind(wanted);
        } else if (again) {
            stop();
            start();
        }
        const std::size_t from = std::max(wanted, next_);
        while (next_ < from) {
            if (!step()) {
                return false;
            }
        }
        fill(windowRows);
        return inWindow(position);
    }

    bool step() try {
        if (!statement_->step()) {
            if (begun_ == 0 || next_ > begun_) {
                count_ = next_;
            }
            stop();
            return false;
        }
        ++next_;
        return true;
    } catch (const sql::DbError& error) {
        stop();
        throw withStatement(error, cached_->text);
    }

    /// Reads the next rows into the window, so many at most.
    void fill(std::size_t most) {
        const std::size_t first = next_;
        std::vector<sql::Row> rows;
        while (rows.size() < most && step()) {
            rows.push_back(current());
        }
        if (!rows.empty()) {
            window_ = std::move(rows);
            first_ = first;
        }
    }

    sql::Row current() const {
        const std::vector<Type>& types = cached_->translation.types;
        sql::Row row;
        row.reserve(types.size());
        for (std::size_t i = 0; i < types.size(); ++i) {
            row.push_back(statement_->value(static_cast<int>(i), types[i].kind));
        }
        return row;
    }

    std::shared_ptr<Engine> engine_;
    std::shared_ptr<CachedStatement> cached_;
    std::unique_ptr<Statement> statement_;  ///< while it is being read
    std::size_t begun_ = 0;                 ///< the position of the first row that it reads
    std::size_t next_ = 0;                  ///< the position that the next step reads
    std::size_t first_ = 0;                 ///< the position of the window's first row
    std::vector<sql::Row> window_;
    std::optional<std::size_t> count_;  ///< once known
};

}  // namespace

std::unique_ptr<sql::RowSource> openRowSource(std::shared_ptr<Engine> engine, std::shared_ptr<CachedStatement> cached) {
    auto rows = std::make_unique<Rows>(std::move(engine), std::move(cached));
    return rows->open() ? std::move(rows) : nullptr;
}

}  // namespace velmora::sqlite
