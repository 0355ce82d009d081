#pragma once
// The rows of a statement, read as they are asked for.

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "velmora/adapters/sqlite/open_rows.h"
#include "velmora/adapters/sqlite/statement_cache.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::sqlite {

class Engine;

/// Rows held in memory at a time.
inline constexpr std::size_t windowRows = 512;

/// Rows read on opening: more than a screen shows. A set that is not larger holds nothing of the database.
inline constexpr std::size_t openingRows = 32;

/// A result set: a window of its rows in memory, the others read through OpenRows.
class Rows final : public sql::RowSource {
  public:
    /// `first` are the set's first rows; without `others` they are all.
    Rows(std::shared_ptr<Engine> engine, std::shared_ptr<const CachedStatement> statement, std::vector<sql::Row> first,
         std::shared_ptr<OpenRows> others);
    ~Rows() override;
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    const std::vector<sql::Column>& columns() const override { return statement_->translation->columns; }
    bool hasRow(std::size_t position) override;
    const sql::Row& row(std::size_t position) override;
    std::size_t rowCount() override;
    std::unique_ptr<sql::RowSource> reopen() const override;
    void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override;

  private:
    bool inWindow(std::size_t position) const { return position >= first_ && position - first_ < window_.size(); }
    bool fetch(std::size_t position);
    void letGoWhenComplete();
    void showWritten(std::size_t from, std::vector<sql::Row>& rows) const;

    std::shared_ptr<Engine> engine_;
    std::shared_ptr<const CachedStatement> statement_;
    std::shared_ptr<OpenRows> others_;  ///< none when the window holds all rows
    std::vector<sql::Row> window_;
    std::size_t first_ = 0;             ///< the position of the window's first row
    std::optional<std::size_t> count_;  ///< once known
    /// Values written through the set, by position and column: a row read again still has the value before.
    std::map<std::size_t, std::map<std::size_t, sql::Bytes>> written_;
};

}  // namespace velmora::sqlite
