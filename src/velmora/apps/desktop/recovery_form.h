#pragma once
// The question at the start whether a draft is recovered.

#include <string>

#include "velmora/platform/screen/form.h"

namespace velmora::desktop {

class RecoveryForm : public screen::Form {
  public:
    enum class Answer { later, recover, discard };

    /// `words` describes the draft in one line.
    explicit RecoveryForm(const std::string& words);

    /// What the user has chosen; `later` when the window was just closed.
    Answer answer() const { return answer_; }

  private:
    void choose(Answer answer);

    Answer answer_ = Answer::later;
    screen::Label lblTexto_{*this, "lblTexto"};
    screen::Label lblPropuesta_{*this, "lblPropuesta"};
    screen::Button cmdRecuperar_{*this, "cmdRecuperar"};
    screen::Button cmdDescartar_{*this, "cmdDescartar"};
};

}  // namespace velmora::desktop
