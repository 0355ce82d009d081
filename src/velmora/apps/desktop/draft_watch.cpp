#include "velmora/apps/desktop/draft_watch.h"

#include <QObject>

#include "velmora/apps/desktop/recovery_form.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/shell/schema_upgrade.h"

namespace velmora::desktop {

namespace {

using proposal::frmBercialPiñones;
using proposal::Restored;

frmBercialPiñones* mainFormOf(const qt::QtScreen& screen) {
    for (screen::Form* form : screen.forms()) {
        if (auto* main = dynamic_cast<frmBercialPiñones*>(form); main != nullptr && !main->bConsulta) {
            return main;
        }
    }
    return nullptr;
}

const char* wordsOf(Restored restored) {
    switch (restored) {
        case Restored::changedMeanwhile:
            return "Otro usuario ha modificado esta propuesta desde entonces. Al grabarla se escribe encima de sus "
                   "cambios.";
        case Restored::asNew:
            return "La propuesta ya no existe o ya está aceptada: lo recuperado queda como propuesta nueva.";
        case Restored::asItWas:
            break;
    }
    return nullptr;
}

}  // namespace

DraftWatch::DraftWatch(qt::QtScreen& screen, Drafts& drafts) : screen_(screen), drafts_(drafts) {
    timer_.setSingleShot(true);
    // It may fire in the middle of an action, behind a box: it writes what was there before that action.
    QObject::connect(&timer_, &QTimer::timeout, [this] { drafts_.keep(draft_); });
}

DraftWatch::~DraftWatch() {
    giveUp();
}

void DraftWatch::giveUp() {
    timer_.stop();
    drafts_.keep(draft_);
    drafts_.giveUp();
    draft_.reset();
}

void DraftWatch::actionEnded() {
    frmBercialPiñones* const form = mainFormOf(screen_);
    if (form == nullptr) {
        giveUp();
        return;
    }
    draft_ = form->unsavedDraft();
    // Not at every key: writing takes some milliseconds.
    if (!timer_.isActive()) {
        drafts_.keep(draft_);
        timer_.start(draftInterval);
    }
}

void DraftWatch::offerLeft(session::Session& session, platform::Desk& desk) {
    for (const LeftDraft& draft : drafts_.left()) {
        RecoveryForm question(proposal::Draft::describe(draft.text));
        desk.screen.showModal(question);
        if (question.answer() == RecoveryForm::Answer::recover) {
            recover(draft, session, desk);
        } else if (question.answer() == RecoveryForm::Answer::discard) {
            Drafts::remove(draft);
        }
    }
}

void DraftWatch::recover(const LeftDraft& draft, session::Session& session, platform::Desk& desk) {
    shell::FnActualizarBD(session.Connection(), desk.screen);
    frmBercialPiñones form(session, desk);
    form.setTag("e");
    const Restored restored = form.restoreDraft(draft.text);
    draft_ = form.unsavedDraft();
    drafts_.keep(draft_);
    Drafts::remove(draft);
    if (const char* words = wordsOf(restored)) {
        desk.screen.show({.text = words, .icon = screen::Icon::exclamation, .title = form.caption()});
    }
    desk.screen.showModal(form);
    giveUp();
}

}  // namespace velmora::desktop
