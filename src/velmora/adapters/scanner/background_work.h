#pragma once
// Runs an operation that may hang on a background thread while the screen stays responsive.

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
    std::chrono::milliseconds silence{60'000};  ///< longest time without progress before the operation is cancelled
    std::chrono::milliseconds grace{5'000};     ///< time to end after it has been cancelled
};

/// Runs the work to its end and shows its progress. The user's Cancel, and too long a time without progress, cancel its
/// watch. Work that does not end within the grace period is abandoned on its thread, so it must own everything it uses.
/// Errors: those of the work; number 68 after a time without progress.
void runInBackground(std::function<void(Watch&)> work, screen::Progress& progress, const std::string& text,
                     const Patience& patience);

/// The same for work with a result. nullopt when it was cancelled before it had one.
template <typename Result>
std::optional<Result> computeInBackground(std::function<std::optional<Result>(Watch&)> work, screen::Progress& progress,
                                          const std::string& text, const Patience& patience) {
    const auto result = std::make_shared<std::optional<Result>>();
    runInBackground([result, work = std::move(work)](Watch& watch) { *result = work(watch); }, progress, text,
                    patience);
    return std::move(*result);
}

}  // namespace velmora::scanner
