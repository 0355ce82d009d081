#pragma once
// A set of the host's connection: its rows as they were when it was opened, in memory.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "velmora/adapters/com/host_engine.h"
#include "velmora/adapters/com/set_reading.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::com {

class HostRows final : public sql::RowSource {
  public:
    HostRows(std::shared_ptr<HostEngine> engine, std::string statement, ReadSet read)
        : engine_(std::move(engine)), statement_(std::move(statement)), read_(std::move(read)) {}

    const std::vector<sql::Column>& columns() const override { return read_.columns; }
    bool hasRow(std::size_t position) override { return position < read_.rows.size(); }
    const sql::Row& row(std::size_t position) override { return read_.rows[position]; }
    std::size_t rowCount() override { return read_.rows.size(); }
    std::unique_ptr<sql::RowSource> reopen() const override { return engine_->openRows(statement_); }
    void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override;

  private:
    std::shared_ptr<HostEngine> engine_;
    std::string statement_;
    ReadSet read_;
};

}  // namespace velmora::com
