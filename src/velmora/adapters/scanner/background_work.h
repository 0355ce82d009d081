#pragma once
// Work that may hang, run on a thread of its own while the screen stays alive.

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "velmora/adapters/scan_protocol/page_source.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::scanner {

struct Patience {
    std::chrono::milliseconds silence{60'000};  ///< without a sign of life before the work is given up
    std::chrono::milliseconds grace{5'000};     ///< for it to end once it is cancelled
};

/// Runs the work to its end and shows how far it is. The user's cancelling, and too long a silence, cancel its watch.
/// Work that does not end within the grace is abandoned on its thread, so it must own all that it uses. Errors: those
/// of the work; after a silence, number 68.
void runInBackground(std::function<void(Watch&)> work, screen::Progress& progress, const std::string& text,
                     const Patience& patience);

/// The same for work with a result. None when it was cancelled before it had one.
template <typename Result>
std::optional<Result> computeInBackground(std::function<std::optional<Result>(Watch&)> work, screen::Progress& progress,
                                          const std::string& text, const Patience& patience) {
    const auto result = std::make_shared<std::optional<Result>>();
    runInBackground([result, work = std::move(work)](Watch& watch) { *result = work(watch); }, progress, text,
                    patience);
    return std::move(*result);
}

}  // namespace velmora::scanner
