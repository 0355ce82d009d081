#include "velmora/proposal/empty_form.h"

#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

using estimate::TextBox;

// Differs D-064: the list of chains is enabled again, which read-only display had disabled.
void EmptyForm::show() {
    peers_.stored.remember({});
    stored_.clear();
    msLimpiarCampos();
    peers_.materials.cboMatDisco_Click();
    peers_.materials.cboMatCubo_Click();
    peers_.history.msHistorico(false);
    peers_.buttons.cmdCambios_Click();
    peers_.newProposal.begin();
    f_.cboDobles.setEnabled(true);
    f_.cboTipoPre.setEnabled(true);
    f_.cboTipoPre.setFocus();
}

// Chosen C-355: a new proposal on request asks before typed texts are discarded; Esc still closes without a question.
void EmptyForm::showOnRequest() {
    if (holdsUnsavedText() && screen_.show({.text = "Hay datos sin grabar. ¿Desea empezar una propuesta nueva?",
                                            .icon = screen::Icon::question,
                                            .buttons = screen::Buttons::yesNo}) != screen::Answer::yes) {
        return;
    }
    // The field with the focus is left while it still shows its proposal: leaving it empty could raise a message.
    f_.form.leaveFocus(screen::Form::Insist::yes);
    show();
    f_.txtPesu(money::customerCode).setFocus();
}

bool EmptyForm::holdsUnsavedText() const {
    if (!f_.proposal.isNew()) {
        return texts() != stored_;
    }
    bool typed = false;
    f_.forEachTextBox([&](TextBox& box) { typed = typed || f_.typed.contain(box); });
    return typed;
}

std::vector<std::string> EmptyForm::texts() const {
    std::vector<std::string> all;
    f_.forEachTextBox([&](TextBox& box) { all.push_back(box.text()); });
    return all;
}

}  // namespace velmora::proposal
