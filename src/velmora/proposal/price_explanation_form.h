#pragma once
// "Why is the price what it is": every calculated figure of the proposal with its rule, what went in and how it was
// rounded. A list of the figures, and the one in its current row in words.

#include <functional>
#include <vector>

#include "velmora/estimate/explanation/explanation.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::proposal {

class PriceExplanationForm : public screen::Form {
  public:
    /// `subject` names the proposal; the figures are shown in the given order. The desk must outlive the form.
    PriceExplanationForm(platform::Desk& desk, std::string subject, std::vector<estimate::Explanation> figures);

    /// Makes the figure in this field the current one; nothing when there is none.
    void choose(const screen::TextBox& field);

    /// What the buttons do that lead further; a button without an action is disabled. To be set before the form is
    /// shown.
    void setPrinting(std::function<void()> print);
    void setLadder(std::function<void()> showLadder);

    const std::string& subject() const { return subject_; }
    const std::vector<estimate::Explanation>& figures() const { return explained_; }

  private:
    void arrange();
    void wire();
    void list();
    void showCurrent();
    void copyAll();

    platform::Desk& desk_;
    std::string subject_;
    std::vector<estimate::Explanation> explained_;
    sql::ListenedRecordset rows_;
    std::function<void()> print_;
    std::function<void()> showLadder_;
    screen::DataGrid dbgCifras_{*this, "dbgCifras"};
    screen::TextBox txtPorque_{*this, "txtPorque"};
    screen::Button cmdCopiar_{*this, "cmdCopiar"};
    screen::Button cmdImprimir_{*this, "cmdImprimir"};
    screen::Button cmdEscala_{*this, "cmdEscala"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

/// All figures as one text under their topics, its lines separated by '\n'.
std::string textOfAll(const std::string& subject, const std::vector<estimate::Explanation>& figures);

}  // namespace velmora::proposal
