#pragma once
// The rows of one set, from the moment they come from the server until the set is closed.

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "velmora/platform/sql/value.h"

namespace velmora::odbc {

/// Rows in the order in which they were added: the first MiBs in memory, the others in a temporary file without a
/// name, which goes with the spool. One thread adds, another one reads meanwhile; a reader waits for rows that are
/// still to come.
class RowSpool {
  public:
    RowSpool();
    ~RowSpool();
    RowSpool(const RowSpool&) = delete;
    RowSpool& operator=(const RowSpool&) = delete;

    // For the thread that adds. Errors: DbError (provider::failure) when the temporary file cannot be written.

    void add(sql::Row row);
    /// No more rows: these are all.
    void finish();
    /// No more rows can be had; whoever asks for a row that did not come gets the error.
    void fail(std::exception_ptr error);

    // For the thread that reads. Errors: what fail() was told; DbError when the temporary file cannot be read.

    /// True once the row is there; false when the set ends before it.
    bool waitFor(std::size_t position);
    /// The row at a position that waitFor accepted. Valid until the next call.
    const sql::Row& row(std::size_t position);
    /// The number of rows, once all have come.
    std::size_t waitForAll();

  private:
    using Rows = std::vector<sql::Row>;

    /// Rows that follow each other, as bytes: in memory, or at a place of the file. A few large pieces are released at
    /// once when the set is closed; the values of a thousand rows are not.
    struct Block {
        std::size_t first;  ///< position of its first row
        std::string rows;   ///< empty: in the file
        std::int64_t offset = 0;
        std::size_t bytes = 0;
    };
    struct Close {
        void operator()(std::FILE* file) const;
    };

    static std::shared_ptr<Rows> emptyTail();
    void closeBlock();
    void write(Block& block, const std::string& rows);
    std::shared_ptr<const Rows> rowsOf(const Block& block);
    bool isCurrent(std::size_t position) const;
    void makeCurrent(std::size_t position);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Block> blocks_;
    std::shared_ptr<Rows> tail_;  ///< the rows behind the blocks
    std::size_t count_ = 0;
    std::size_t inMemory_ = 0;   ///< bytes of the blocks that are held in memory
    std::size_t tailBytes_ = 0;  ///< about
    bool complete_ = false;
    std::exception_ptr error_;
    std::unique_ptr<std::FILE, Close> file_;
    std::int64_t fileEnd_ = 0;

    // Of the thread that reads: the rows last read from, a block's or the tail's, and the positions that they have. The
    // tail gets further rows meanwhile.
    std::shared_ptr<const Rows> current_;
    std::size_t currentFirst_ = 0;
    std::size_t currentEnd_ = 0;
};

}  // namespace velmora::odbc
