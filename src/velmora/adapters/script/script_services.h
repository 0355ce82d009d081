#pragma once
// The machine around a program that a script drives: its dialogs take queued answers, nothing is really opened.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "velmora/adapters/script/answers.h"
#include "velmora/adapters/script/journal.h"
#include "velmora/platform/system/system.h"

namespace velmora::script {

/// A moment that stands still.
class FixedClock final : public system::Clock {
  public:
    explicit FixedClock(runtime::Date now) : now_(now) {}
    runtime::Date now() const override { return now_; }

  private:
    runtime::Date now_;
};

/// "YYYY-MM-DD HH:MM:SS", or the date alone; none for anything else and for days that no calendar has.
std::optional<runtime::Date> momentFrom(std::string_view text);

class ScriptServices final : public system::Services {
  public:
    ScriptServices(Journal& journal, Answers& answers) : journal_(journal), answers_(answers) {}
    /// With a temporary folder of one's own, which is made when it is missing and stays with what lies in it.
    ScriptServices(Journal& journal, Answers& answers, std::filesystem::path kept)
        : journal_(journal), answers_(answers), folder_(std::move(kept)), isKept_(true) {}
    /// Removes the temporary folder and what lies in it, unless it was to be kept.
    ~ScriptServices() override;
    ScriptServices(const ScriptServices&) = delete;
    ScriptServices& operator=(const ScriptServices&) = delete;

    /// The folder given, or one of this run alone, made when it is first asked for. Empty when none can be made.
    std::string temporaryFolder() const override;
    /// Shows `file title="…" path="…"`. Errors: Ending when nothing is queued.
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override;
    /// Shows `opened "NAME"`, the file's name without its folder; gives 2 (no such file) when there is none.
    int openWithAssociatedProgram(std::string_view path) override;

  private:
    Journal& journal_;
    Answers& answers_;
    mutable std::filesystem::path folder_;
    bool isKept_ = false;
};

}  // namespace velmora::script
