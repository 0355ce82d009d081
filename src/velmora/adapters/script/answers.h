#pragma once
// What a script has ready for questions to come.

#include <deque>
#include <optional>
#include <string>

#include "velmora/platform/screen/screen.h"

namespace velmora::script {

/// Each queue is used up from its front.
struct Answers {
    std::deque<screen::Answer> boxes;
    std::deque<std::optional<std::size_t>> searches;  ///< 0-based row; none leaves the window
    std::deque<std::optional<std::string>> files;     ///< path; none leaves the dialog
};

/// Takes the front; none when nothing is queued.
template <typename Queued>
std::optional<Queued> takeFront(std::deque<Queued>& queue) {
    if (queue.empty()) {
        return std::nullopt;
    }
    Queued front = std::move(queue.front());
    queue.pop_front();
    return front;
}

}  // namespace velmora::script
