#pragma once
// A set of numbered rows that records how far it was read and can be made to fail.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::toolkit {

/// What was read, and the row from which on reading fails.
struct Reading {
    std::size_t farthest = 0;
    bool counted = false;
    std::size_t failsFrom = std::numeric_limits<std::size_t>::max();
};

class CountedRows : public sql::RowSource {
  public:
    CountedRows(std::size_t rows, Reading& reading) : rows_(rows), reading_(reading) {}

    const std::vector<sql::Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override {
        if (position >= reading_.failsFrom) {
            runtime::raise(runtime::typeMismatch);
        }
        reading_.farthest = std::max(reading_.farthest, std::min(position, rows_));
        return position < rows_;
    }
    const sql::Row& row(std::size_t position) override {
        row_ = {static_cast<std::int64_t>(position), "Fila"};
        return row_;
    }
    std::size_t rowCount() override {
        reading_.counted = true;
        return rows_;
    }
    std::unique_ptr<sql::RowSource> reopen() const override { return std::make_unique<CountedRows>(rows_, reading_); }

  private:
    std::size_t rows_;
    Reading& reading_;
    std::vector<sql::Column> columns_{{"ID"}, {"TEXTO"}};
    sql::Row row_;
};

}  // namespace velmora::toolkit
