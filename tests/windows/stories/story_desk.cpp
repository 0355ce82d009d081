#include "story_desk.h"

namespace velmora::stories {

namespace {

constexpr long pathFileAccess = 75;

std::unique_ptr<system::Clock> clockAt(std::optional<runtime::Date> moment) {
    if (moment) {
        return std::make_unique<script::FixedClock>(*moment);
    }
    return std::make_unique<system::SystemClock>();
}

}  // namespace

std::unique_ptr<StoryDesk> currentDesk;

StoryDesk::StoryDesk(const std::filesystem::path& output, const std::filesystem::path& folder,
                     std::optional<runtime::Date> moment)
    : out_(output, std::ios::binary),
      journal_(out_),
      screen_(journal_, answers_),
      services_(journal_, answers_, folder),
      watchedScreen_(screen_, ending_),
      watchedServices_(services_, ending_),
      clock_(clockAt(moment)) {
    if (!out_) {
        runtime::raise(pathFileAccess);
    }
}

}  // namespace velmora::stories
