#pragma once
// Answers that a script has queued for questions to come.

#include <deque>
#include <optional>
#include <string>

#include "velmora/platform/screen/screen.h"

namespace velmora::script {

/// Each queue is consumed from its front.
struct Answers {
    std::deque<screen::Answer> boxes;
    std::deque<std::optional<std::size_t>> searches;  ///< 0-based row; nullopt closes the window without a choice
    std::deque<std::optional<std::string>> files;     ///< path; nullopt cancels the dialog
};

/// Removes and returns the front; nullopt when the queue is empty.
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
