#pragma once
// A set over ODBC: its first rows at once, the others read ahead.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "velmora/adapters/odbc/cursor.h"
#include "velmora/adapters/odbc/link_pool.h"
#include "velmora/adapters/odbc/row_spool.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::odbc {

class Engine;

/// Reads what is left of a cursor into a spool on a thread of its own, then gives the connection back. Ends early when
/// it is destroyed.
class ReadAhead {
  public:
    ReadAhead(Cursor cursor, std::shared_ptr<Link> link, std::shared_ptr<LinkPool> pool,
              std::shared_ptr<RowSpool> spool);

  private:
    std::jthread thread_;
};

class FetchedRows final : public sql::RowSource {
  public:
    /// `readAhead`: none when the spool has all rows.
    FetchedRows(std::shared_ptr<Engine> engine, std::shared_ptr<LinkPool> pool, std::string statement,
                std::vector<CursorColumn> columns, std::shared_ptr<RowSpool> spool,
                std::unique_ptr<ReadAhead> readAhead);

    const std::vector<sql::Column>& columns() const override { return names_; }
    bool hasRow(std::size_t position) override;
    const sql::Row& row(std::size_t position) override;
    std::size_t rowCount() override;
    std::unique_ptr<sql::RowSource> reopen() const override;
    void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override;

  private:
    template <typename Work>
    auto watch(const Work& work);

    std::shared_ptr<Engine> engine_;
    std::shared_ptr<LinkPool> pool_;  ///< the one whose connection the rows came on
    std::string statement_;
    std::vector<CursorColumn> columns_;
    std::vector<sql::Column> names_;
    std::shared_ptr<RowSpool> spool_;
    std::unique_ptr<ReadAhead> readAhead_;
    /// What was written through the set, by position and column.
    std::map<std::size_t, std::map<std::size_t, sql::Bytes>> written_;
    sql::Row patched_;
};

}  // namespace velmora::odbc
