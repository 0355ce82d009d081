#pragma once
// One connection of the embedded engine, configured, with the statements that it has prepared.

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/lock_wait.h"
#include "velmora/adapters/sqlite/statement.h"
#include "velmora/adapters/sqlite/statement_cache.h"

struct sqlite3;

namespace velmora::sqlite {

/// The path of a database in memory.
inline constexpr std::string_view inMemory = ":memory:";

/// The engine's names of a database's two files.
inline constexpr std::string_view mainSchema = "main";
inline constexpr std::string_view documentsSchema = "documents";

/// Size in bytes at which the write-ahead file is copied into the database and reused from its start. It grows beyond
/// that only while a reader holds an older state of the database.
inline constexpr std::uint64_t writeAheadSize = std::uint64_t{1024} * 1024;

/// Not thread-safe: used by one thread at a time.
class Link {
  public:
    /// Opens the database, with write-ahead logging where the place allows it. Errors: DbError.
    Link(const std::string& path, const Options& options);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    /// Chosen C-208: an empty database of its own for rows that are kept, in the engine's temporary storage: memory
    /// first, and beyond some 2 MiB a file that has no name from the moment it is made (SQLITE_TMPDIR, TMPDIR,
    /// /var/tmp, /tmp). It is deleted with the link. Errors: DbError.
    static std::shared_ptr<Link> temporary(const Options& options);

    /// Attaches the documents' file; does nothing when it is attached already. Errors: DbError.
    void attachDocuments(const std::string& file);

    void run(const std::string& sql);
    bool isAlive();
    /// Errors: DbError when one of the files has been moved, replaced or removed since it was opened: what is written
    /// would go where nobody looks for it.
    void mustLieInPlace();
    /// True in a snapshot too. The engine may end either by itself, after a read error or when the disk is full.
    bool isInTransaction() const;
    std::unique_ptr<Statement> prepare(std::string_view sql);

    /// A number that changes with every change of the tables, by any process. Errors: DbError.
    std::int64_t schemaVersion();

    /// True when take() need not prepare it.
    bool hasPrepared(const CachedStatement& cached) const { return idleById_.contains(cached.id); }
    /// The prepared statement: one that was given back, or a new one. Errors: DbError.
    std::unique_ptr<Statement> take(const CachedStatement& cached);
    void giveBack(const CachedStatement& cached, std::unique_ptr<Statement> statement);

    /// True with write-ahead logging: readers and writers do not block each other, and a reader sees one state.
    bool keepsSnapshots() const { return keepsSnapshots_; }
    /// To be called while a statement is being read: until leaveSnapshot() this link reads the state of the database
    /// that the statement reads, and the write-ahead files of what it has read so far are not truncated.
    void enterSnapshot();
    /// Does nothing without a snapshot. No statement may be between two rows. Errors: DbError.
    void leaveSnapshot();
    bool isInSnapshot() const { return inSnapshot_; }
    /// Copies the write-ahead files into the databases as far as other readers allow, without waiting, so that the
    /// files can be reused from their start. Only outside a snapshot. Raises no error.
    void moveWriteAheadIntoDatabase();
    /// The schemas that a snapshot holds.
    std::vector<std::string> heldSchemas() const;
    /// The path of a schema's write-ahead file; empty for one that has none.
    std::string writeAheadFile(const std::string& schema) const;

    sqlite3* handle() const { return database_.get(); }

  private:
    friend class FixedMoment;
    struct Close {
        void operator()(sqlite3* database) const;
    };
    struct Idle {
        std::uint64_t id;
        std::unique_ptr<Statement> statement;
    };

    void configure(const std::string& path);
    bool isWriteAhead(std::string_view schema);
    void limitWriteAhead(std::string_view schema);

    Options options_;
    LockWait wait_{options_};
    std::optional<runtime::Date> moment_;
    bool keepsSnapshots_ = false;
    bool documentsAttached_ = false;
    bool inSnapshot_ = false;
    std::unique_ptr<sqlite3, Close> database_;
    std::vector<std::unique_ptr<Statement>> versions_;  ///< of the schemas known
    std::list<Idle> idle_;                              ///< the one used last stands first
    std::unordered_map<std::uint64_t, std::list<Idle>::iterator> idleById_;
};

/// Chosen C-209: getdate() answers one and the same moment in all rows of a set, also in those read again: the moment
/// of its opening. During its lifetime getdate() answers this moment on the link.
class FixedMoment {
  public:
    FixedMoment(Link& link, const std::optional<runtime::Date>& moment) : link_(link) { link_.moment_ = moment; }
    ~FixedMoment() { link_.moment_.reset(); }
    FixedMoment(const FixedMoment&) = delete;
    FixedMoment& operator=(const FixedMoment&) = delete;

  private:
    Link& link_;
};

}  // namespace velmora::sqlite
