#pragma once
// The screen of a program driven by a script: forms execute commands, boxes and windows take queued answers.

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

    /// Sets the function that executes the script's next command on the open form; it returns false at the end. Must be
    /// set before any form is shown.
    void onIdle(std::function<bool()> playNext) { playNext_ = std::move(playNext); }

    /// The forms shown, the topmost last.
    const std::vector<screen::Form*>& forms() const { return forms_; }

    /// Activates the form and executes commands until it is unloaded. At the end of the script it is unloaded.
    void showModal(screen::Form& form) override;
    /// A box with only OK answers itself (and consumes a queued `ok`). Errors: Ending when no answer is queued, or one
    /// that the box has no button for.
    screen::Answer show(const screen::MessageBox& box) override;
    /// Prints `search title="…" pick=N`. Errors: Ending when nothing is queued, or a row that does not exist.
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
