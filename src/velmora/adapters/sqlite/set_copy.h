#pragma once
// Copies of what a set still has to read, made in small steps on a temporary database of their own.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "velmora/adapters/sqlite/row_reader.h"

struct sqlite3_backup;

namespace velmora::sqlite {

enum class CopyProgress { goingOn, complete, tooManyRows };

/// A copy being made. The caller must ensure that nobody else uses the source's link during a step, and that the source
/// keeps its state between two steps.
class SetCopy {
  public:
    virtual ~SetCopy() = default;

    /// A part of the work, of some milliseconds. Errors: DbError, as for a full disk; the copy is unusable then.
    virtual CopyProgress step() = 0;
    /// The set, read from the finished copy.
    virtual std::unique_ptr<RowReader> reader() const = 0;
};

/// The rows themselves, if they are not more than `most`.
class RowCopy final : public SetCopy {
  public:
    RowCopy(const RowReader& source, const Options& options, std::size_t most);
    ~RowCopy() override;

    CopyProgress step() override;
    std::unique_ptr<RowReader> reader() const override;

  private:
    std::shared_ptr<Link> source_;
    std::shared_ptr<Link> copy_;
    std::shared_ptr<const CachedStatement> statement_;  ///< reads the copy
    std::optional<runtime::Date> moment_;
    std::shared_ptr<const CachedStatement> read_;  ///< with the values that `reading_` is given
    std::unique_ptr<Statement> reading_;
    std::unique_ptr<Statement> writing_;
    std::size_t most_;
    std::size_t copied_ = 0;
};

/// The pages of all that the source's snapshot holds: the same statement reads the same rows from them, in the same
/// order. The time it takes depends on the size of the database, not on the number of rows.
class PageCopy final : public SetCopy {
  public:
    PageCopy(const RowReader& source, const Options& options);
    ~PageCopy() override;

    CopyProgress step() override;
    std::unique_ptr<RowReader> reader() const override;

  private:
    struct Finish {
        void operator()(sqlite3_backup* backup) const;
    };
    void begin(const std::string& schema);

    std::shared_ptr<Link> source_;
    std::shared_ptr<Link> copy_;
    std::shared_ptr<const CachedStatement> statement_;
    std::optional<runtime::Date> moment_;
    std::vector<std::string> schemas_;  ///< still to be copied
    std::unique_ptr<sqlite3_backup, Finish> backup_;
};

/// Pages of the databases that the link's snapshot holds. Errors: DbError.
std::uint64_t heldPages(Link& link);

}  // namespace velmora::sqlite
