#pragma once
// A screen that a test scripts: answers are queued beforehand, and what nobody scripted fails the test.

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/screen/screen.h"

namespace velmora::support {

class ScriptedScreen : public screen::Screen {
  public:
    /// A search window as it was asked for, with its rows.
    struct Search {
        screen::SearchWindow window;
        std::size_t rowCount = 0;
    };

    ~ScriptedScreen() override {
        EXPECT_TRUE(answers_.empty()) << answers_.size() << " answers were queued that nobody asked for";
        EXPECT_TRUE(picks_.empty()) << picks_.size() << " picks were queued that nobody asked for";
        EXPECT_TRUE(modals_.empty()) << modals_.size() << " modal forms were expected that nobody showed";
    }

    // --- The script ------------------------------------------------------------------------------------------

    /// The answer of the next question, in order. A box with only OK answers itself.
    void queue(screen::Answer answer) { answers_.push_back(answer); }
    /// What happens elsewhere while a question stands on the screen.
    std::function<void()> whileAsked;
    /// The row chosen in the next search window; none leaves it without a choice.
    void queuePick(std::optional<std::size_t> row) { picks_.push_back(row); }
    /// What the user does in the next form that is shown modally; the form is unloaded afterwards.
    void queueModal(std::function<void(screen::Form&)> user) { modals_.push_back(std::move(user)); }

    // --- What happened ---------------------------------------------------------------------------------------

    std::vector<screen::MessageBox> messages;
    std::vector<Search> searches;
    std::vector<screen::Pointer> pointers;
    std::vector<std::string> work;  ///< what was told to be under way, and its ends
    int yields = 0;                 ///< how often events that wait were let through

    std::vector<std::string> messageTexts() const {
        std::vector<std::string> texts;
        for (const screen::MessageBox& box : messages) {
            texts.push_back(box.text);
        }
        return texts;
    }

    // --- The screen ------------------------------------------------------------------------------------------

    void showModal(screen::Form& form) override {
        if (modals_.empty()) {
            unexpected("the form " + form.name());
        }
        const auto user = take(modals_);
        form.activate();
        user(form);
        form.unload();
    }
    screen::Answer show(const screen::MessageBox& box) override {
        messages.push_back(box);
        if (box.buttons == screen::Buttons::ok) {
            return screen::Answer::ok;
        }
        if (const auto happening = whileAsked) {
            happening();
        }
        if (answers_.empty()) {
            unexpected("the question \"" + box.text + "\"");
        }
        return take(answers_);
    }
    std::optional<std::size_t> search(const screen::SearchWindow& window) override {
        searches.push_back({window, window.rows.recordCount()});
        if (picks_.empty()) {
            unexpected("the search \"" + window.title + "\"");
        }
        return take(picks_);
    }
    void setPointer(screen::Pointer pointer) override { pointers.push_back(pointer); }
    void tellWork(std::string_view text) override { work.emplace_back(text); }
    void processEvents() override { ++yields; }

  private:
    template <typename T>
    static T take(std::deque<T>& queue) {
        T first = std::move(queue.front());
        queue.pop_front();
        return first;
    }
    [[noreturn]] static void unexpected(const std::string& what) {
        ADD_FAILURE() << "nobody scripted " << what;
        throw std::logic_error("nobody scripted " + what);
    }

    std::deque<screen::Answer> answers_;
    std::deque<std::optional<std::size_t>> picks_;
    std::deque<std::function<void(screen::Form&)>> modals_;
};

}  // namespace velmora::support
