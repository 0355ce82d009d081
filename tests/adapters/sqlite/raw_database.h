#pragma once
// The engine without the adapter, to see what that has left in the files.

#include <memory>
#include <stdexcept>
#include <string>

#include <sqlite3.h>

namespace velmora::test {

class RawDatabase {
  public:
    explicit RawDatabase(const std::string& path) {
        sqlite3* opened = nullptr;
        const int code = sqlite3_open(path.c_str(), &opened);
        handle_.reset(opened);
        if (code != SQLITE_OK) {
            throw std::runtime_error("cannot open " + path);
        }
    }

    void run(const std::string& sql) {
        if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(handle_.get()));
        }
    }

    /// True when nobody holds an older state: only then can the write-ahead file be emptied.
    bool canEmptyTheWriteAheadFile() {
        run("SELECT count(*) FROM sqlite_schema");  // before its first reading a connection knows of no such file
        return sqlite3_wal_checkpoint_v2(handle_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr) ==
               SQLITE_OK;
    }

  private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace velmora::test
