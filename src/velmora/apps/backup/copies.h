#pragma once
// The copies of an embedded database: made by hand and once a day, the last ones kept, put back after a check.

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/system/system.h"

namespace velmora::backup {

/// Why a copy could not be made or put back; Spanish, for the user.
class Failed : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Copy {
    std::filesystem::path file;  ///< the copies of documents and settings lie beside it
    runtime::Date taken;
};

/// How many copies are kept.
inline constexpr std::size_t mostCopies = 14;
/// A workshop whose last copy is older than this is warned.
inline constexpr std::chrono::days longestWithoutCopy{7};

/// They lie in the folder "copias" beside the database: "taller 2026-11-22 143000.db" and the documents' one, whose
/// name has "DOC" in front, and its company's settings, once it has any. Another database of the folder has its own.
class Copies {
  public:
    /// The clock must outlive this object.
    Copies(const std::string& database, const system::Clock& clock);

    /// The newest first; a copy without its documents is none.
    std::vector<Copy> all() const;

    /// Makes one while other programs may write. It appears complete or not at all, is read once to its last page, and
    /// displaces the oldest beyond `mostCopies`. Errors: Failed.
    Copy make();
    /// Makes the first one of the day. Errors: Failed.
    void makeDaily();
    /// True when the last one is too old.
    bool isOverdue() const;

    /// Puts the database, its documents and its settings back as they were when the copy was taken, after it was read
    /// to its last page. What is there now is copied first and kept, in addition to the others; when it cannot be read,
    /// its files are kept beside the copies as they are, "dañada taller.db". All of them or none: a restore that was
    /// killed half-way is ended when the database is opened next. Errors: Failed, also when the database is open, in
    /// this program or another one.
    void restore(const Copy& copy);

  private:
    std::filesystem::path copyAt(runtime::Date moment) const;
    runtime::Date freeMoment() const;
    void makeAt(const std::filesystem::path& file) const;
    void prepare(const std::filesystem::path& copy) const;
    void keepLast() const;
    void keepDamaged() const;

    std::filesystem::path database_;
    std::filesystem::path folder_;
    const system::Clock& clock_;
};

}  // namespace velmora::backup
