#pragma once
// Drafts of proposals beside the database: what was typed outlives a crash and a closed window.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "velmora/platform/runtime/date.h"

namespace velmora::desktop {

/// A draft that no running program keeps.
struct LeftDraft {
    std::filesystem::path file;
    std::string text;
};

/// The draft of this run of the program. POSIX only.
///
/// The file ".taller.db.borrador-N" is replaced as a whole, so it is complete at any moment. A second file,
/// ".taller.db.borrador-N.vivo", is locked for as long as the program runs: a draft without such a lock was left by one
/// that crashed. A draft that is given up with its window becomes ".taller.db.borrador-cerrado"; the last one is kept.
// Chosen C-371: of the proposals that were closed without a save only the last one is offered at the next start: Esc is
// the usual way to drop one.
class Drafts {
  public:
    /// For the database at this path. Without a right to write there, nothing is kept.
    explicit Drafts(const std::string& database);
    /// The program ends: what has not been stored counts as given up.
    ~Drafts();
    Drafts(const Drafts&) = delete;
    Drafts& operator=(const Drafts&) = delete;

    /// Keeps this text in place of the one before; without one, nothing is kept. Returns once it is on the disk. A
    /// failure is not told: a full disk must not stop the typing.
    void keep(const std::optional<std::string>& draft);
    /// The window is closed: what has not been stored is given up.
    void giveUp();

    /// Those left by programs that crashed, and the last one given up.
    std::vector<LeftDraft> left() const;
    static void remove(const LeftDraft& draft);

  private:
    std::filesystem::path named(const std::string& ending) const;
    bool isHeld(const std::filesystem::path& draft) const;

    std::filesystem::path database_;
    std::filesystem::path file_;
    int lock_ = -1;
    std::optional<std::string> kept_;
};

}  // namespace velmora::desktop
