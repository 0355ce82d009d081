#pragma once
// The machine services of a program driven by a script: dialogs take queued answers, and no file is really opened.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "velmora/adapters/script/answers.h"
#include "velmora/adapters/script/journal.h"
#include "velmora/platform/system/system.h"

namespace velmora::script {

/// A clock that always gives the same time.
class FixedClock final : public system::Clock {
  public:
    explicit FixedClock(runtime::Date now) : now_(now) {}
    runtime::Date now() const override { return now_; }

  private:
    runtime::Date now_;
};

/// "YYYY-MM-DD HH:MM:SS" or the date alone; nullopt for anything else and for invalid dates.
std::optional<runtime::Date> momentFrom(std::string_view text);

class ScriptServices final : public system::Services {
  public:
    ScriptServices(Journal& journal, Answers& answers) : journal_(journal), answers_(answers) {}
    /// With the given temporary folder, which is created when missing and kept with its contents.
    ScriptServices(Journal& journal, Answers& answers, std::filesystem::path kept)
        : journal_(journal), answers_(answers), folder_(std::move(kept)), isKept_(true) {}
    /// Removes the temporary folder and its contents, unless it is to be kept.
    ~ScriptServices() override;
    ScriptServices(const ScriptServices&) = delete;
    ScriptServices& operator=(const ScriptServices&) = delete;

    /// The given folder, or one for this run alone, created on first use. Empty when none can be created.
    std::string temporaryFolder() const override;
    /// Prints `file title="…" path="…"`. Errors: Ending when nothing is queued.
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override;
    /// Prints `opened "NAME"`, the file's name without its folder; returns 2 (no such file) when the file does not
    /// exist.
    int openWithAssociatedProgram(std::string_view path) override;
    /// Prints `copied "…"`.
    bool copyToClipboard(std::string_view text) override;

  private:
    Journal& journal_;
    Answers& answers_;
    mutable std::filesystem::path folder_;
    bool isKept_ = false;
};

}  // namespace velmora::script
