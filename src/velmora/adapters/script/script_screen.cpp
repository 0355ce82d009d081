#include "velmora/adapters/script/script_screen.h"

#include <cstdint>
#include <utility>

#include "velmora/adapters/script/ending.h"
#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/toolkit/message_choices.h"

namespace velmora::script {

namespace {

using screen::Answer;

/// Lists a form among those shown for the duration of its modal show, exceptions included.
class Shown {
  public:
    Shown(std::vector<screen::Form*>& forms, screen::Form& form) : forms_(forms) { forms_.push_back(&form); }
    ~Shown() { forms_.pop_back(); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

  private:
    std::vector<screen::Form*>& forms_;
};

}  // namespace

void ScriptScreen::showModal(screen::Form& form) {
    const Shown shown(forms_, form);
    journal_.guard([&] { form.activate(); });
    while (!form.isUnloaded() && playNext_()) {
    }
    journal_.guard([&] { form.unload(); });
}

Answer ScriptScreen::show(const screen::MessageBox& box) {
    const bool asks = box.buttons != screen::Buttons::ok;
    std::optional<Answer> answer = Answer::ok;
    if (asks) {
        answer = takeFront(answers_.boxes);
        // Chosen C-268: a queued `answer ok` at the front is consumed by a box that has only OK and needs no answer.
    } else if (!answers_.boxes.empty() && answers_.boxes.front() == Answer::ok) {
        answers_.boxes.pop_front();
    }
    journal_.message(box, answer ? nameOf(*answer) : "none");
    if (!answer) {
        throw Ending(Status::unanswered, "a question has no answer: " + box.text);
    }
    if (!toolkit::offers(box.buttons, *answer)) {
        throw Ending(Status::wrong, "the question has no such button: " + std::string(nameOf(*answer)));
    }
    return *answer;
}

std::optional<std::size_t> ScriptScreen::search(const screen::SearchWindow& window) {
    const std::string start = "search title=" + inQuotes(window.title) + " pick=";
    const auto pick = takeFront(answers_.searches);
    // Chosen C-269: a search window or file dialog without a queued answer ends the script, like an unanswered
    // question.
    if (!pick) {
        journal_.line(start + "unanswered");
        throw Ending(Status::unanswered, "a search window has no pick: " + window.title);
    }
    if (!*pick) {
        journal_.line(start + "none");
        return std::nullopt;
    }
    journal_.line(start + runtime::CStr(static_cast<std::int64_t>(**pick)));
    if (!window.rows.isOpen() || **pick >= window.rows.recordCount()) {
        throw Ending(Status::wrong, "the search window has no such row");
    }
    return *pick;
}

}  // namespace velmora::script
