#pragma once
// Reads the rows of a statement by their position.

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "velmora/adapters/sqlite/link.h"
#include "velmora/adapters/sqlite/statement_cache.h"
#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/value.h"

namespace velmora::sqlite {

/// Reading a position before the last one read runs the statement again; rows and order are the same only while the
/// link sees the same state of the database. Errors of all operations: DbError with the statement's
/// text.
class RowReader {
  public:
    /// `moment`: what getdate() answers in every row; none for the clock.
    RowReader(std::shared_ptr<Link> link, std::shared_ptr<const CachedStatement> statement,
              std::optional<runtime::Date> moment);
    ~RowReader();
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    /// The rows from a 0-based position on, so many at most; fewer only where the set ends.
    std::vector<sql::Row> read(std::size_t from, std::size_t most);
    /// How many rows there are, once the last one has been read.
    std::optional<std::size_t> end() const { return end_; }
    /// How many rows there are; counts them when the end has not been seen.
    std::size_t count();
    /// True when the engine found the tables changed since the statement had been translated.
    bool wasPreparedAnew() const { return preparedAnew_; }
    /// Resets the statement, which releases the database; a later read() runs it again.
    void stop();

    const std::shared_ptr<Link>& link() const { return link_; }
    const std::shared_ptr<const CachedStatement>& statement() const { return cached_; }
    const std::optional<runtime::Date>& moment() const { return moment_; }

  private:
    bool isWorthPassingOver(std::size_t rows) const;
    bool goTo(std::size_t position);
    void start();
    void startBehind(std::size_t rows);
    bool step();
    sql::Row current() const;

    std::shared_ptr<Link> link_;
    std::shared_ptr<const CachedStatement> cached_;
    std::optional<runtime::Date> moment_;
    std::unique_ptr<Statement> statement_;  ///< while it is being read
    int timesPreparedAnew_ = 0;             ///< when the reading began
    bool preparedAnew_ = false;
    std::size_t begun_ = 0;  ///< the position of the first row that it reads
    std::size_t next_ = 0;   ///< the position that the next step reads
    std::optional<std::size_t> end_;
};

}  // namespace velmora::sqlite
