#pragma once
// The screen of a program that a script drives: forms take commands, boxes and windows take queued answers.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "velmora/adapters/script/answers.h"
#include "velmora/adapters/script/journal.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::script {

class ScriptScreen final : public screen::Screen {
  public:
    ScriptScreen(Journal& journal, Answers& answers) : journal_(journal), answers_(answers) {}

    /// Plays the next command of the script on what is open; false at its end. Set before any form is shown.
    void onIdle(std::function<bool()> playNext) { playNext_ = std::move(playNext); }

    /// Forms that are shown, the one on top last.
    const std::vector<screen::Form*>& forms() const { return forms_; }

    /// Activates the form, then plays commands until it is unloaded. At the end of the script it is unloaded.
    void showModal(screen::Form& form) override;
    /// A box with only OK answers itself (a queued `ok` is used up by it). Errors: Ending when no answer is queued,
    /// or one that the box has no button for.
    screen::Answer show(const screen::MessageBox& box) override;
    /// Shows `search title="…" pick=N`. Errors: Ending when nothing is queued, or a row that is not there.
    std::optional<std::size_t> search(const screen::SearchWindow& window) override;
    void setPointer(screen::Pointer) override {}
    void processEvents() override {}

  private:
    Journal& journal_;
    Answers& answers_;
    std::function<bool()> playNext_;
    std::vector<screen::Form*> forms_;
};

}  // namespace velmora::script
