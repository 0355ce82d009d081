#pragma once
// What the component works with while a story is played: forms on the script's screen.

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>

#include "velmora/adapters/script/answers.h"
#include "velmora/adapters/script/journal.h"
#include "velmora/adapters/script/script_screen.h"
#include "velmora/adapters/script/script_services.h"

#include "remembered_ending.h"

namespace velmora::stories {

class StoryDesk {
  public:
    /// Output goes to the file. The folder gets what the program writes. The clock stands at the moment, if there is
    /// one. Error 75 when the file cannot be written.
    StoryDesk(const std::filesystem::path& output, const std::filesystem::path& folder,
              std::optional<runtime::Date> moment);

    script::Journal& journal() { return journal_; }
    script::Answers& answers() { return answers_; }
    script::ScriptScreen& screen() { return screen_; }
    script::ScriptServices& services() { return services_; }
    RememberedEnding& ending() { return ending_; }
    /// As the component gets them.
    screen::Screen& watchedScreen() { return watchedScreen_; }
    system::Services& watchedServices() { return watchedServices_; }
    const system::Clock& clock() const { return *clock_; }
    /// Writes what is still held back.
    void flush() { out_.flush(); }

  private:
    std::ofstream out_;
    script::Journal journal_;
    script::Answers answers_;
    script::ScriptScreen screen_;
    script::ScriptServices services_;
    RememberedEnding ending_;
    WatchedScreen watchedScreen_;
    WatchedServices watchedServices_;
    std::unique_ptr<system::Clock> clock_;
};

/// The desk of the story that is played; null before the first.
extern std::unique_ptr<StoryDesk> currentDesk;

}  // namespace velmora::stories
