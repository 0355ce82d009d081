#include "velmora/adapters/odbc/fetched_rows.h"

#include <utility>

#include "velmora/adapters/odbc/diagnostics.h"
#include "velmora/adapters/odbc/engine.h"

namespace velmora::odbc {

ReadAhead::ReadAhead(Cursor cursor, std::shared_ptr<Link> link, std::shared_ptr<LinkPool> pool,
                     std::shared_ptr<RowSpool> spool)
    : thread_([cursor = std::make_unique<Cursor>(std::move(cursor)), link = std::move(link), pool = std::move(pool),
               spool = std::move(spool)](const std::stop_token& stop) mutable {
          try {
              link->watch([&] {
                  sql::Row row;
                  while (!stop.stop_requested() && cursor->next(row)) {
                      spool->add(std::move(row));
                  }
              });
              spool->finish();
          } catch (...) {
              spool->fail(std::current_exception());
          }
          // The statement ends before its connection serves another one.
          cursor.reset();
          pool->giveBack(std::move(link));
      }) {}

FetchedRows::FetchedRows(std::shared_ptr<Engine> engine, std::shared_ptr<LinkPool> pool, std::string statement,
                         std::vector<CursorColumn> columns, std::shared_ptr<RowSpool> spool,
                         std::unique_ptr<ReadAhead> readAhead)
    : engine_(std::move(engine)),
      pool_(std::move(pool)),
      statement_(std::move(statement)),
      columns_(std::move(columns)),
      spool_(std::move(spool)),
      readAhead_(std::move(readAhead)) {
    for (const CursorColumn& column : columns_) {
        names_.push_back({column.name});
    }
}

/// Rows that are read ahead may stop with the loss of their connection: then the data connection counts as lost.
template <typename Work>
auto FetchedRows::watch(const Work& work) {
    try {
        return work();
    } catch (const sql::DbError& error) {
        if (isLoss(error.details().sqlState)) {
            engine_->noteLossIn(*pool_);
        }
        throw;
    }
}

bool FetchedRows::hasRow(std::size_t position) {
    return watch([&] { return spool_->waitFor(position); });
}

std::size_t FetchedRows::rowCount() {
    return watch([&] { return spool_->waitForAll(); });
}

const sql::Row& FetchedRows::row(std::size_t position) {
    const sql::Row& row = spool_->row(position);
    const auto written = written_.find(position);
    if (written == written_.end()) {
        return row;
    }
    patched_ = row;
    for (const auto& [column, content] : written->second) {
        patched_[column] = content;
    }
    return patched_;
}

std::unique_ptr<sql::RowSource> FetchedRows::reopen() const {
    return engine_->openRows(statement_);
}

void FetchedRows::updateBinary(std::size_t position, std::size_t column, sql::Bytes content) {
    if (columns_[column].kind != Kind::binary) {
        refuseUpdate();
    }
    const auto target = engine_->binaryTarget(statement_, columns_, column);
    if (!target) {
        refuseUpdate();
    }
    const sql::Value key = row(position)[target->keyColumn];
    if (key.isNull()) {
        refuseUpdate();
    }
    engine_->updateBinary(*target, key, content, statement_);
    written_[position][column] = std::move(content);
}

}  // namespace velmora::odbc
