#include "velmora/apps/desktop/recovery_form.h"

namespace velmora::desktop {

RecoveryForm::RecoveryForm(const std::string& words) : Form("frmRecuperar") {
    namespace lay = screen::layout;
    setCaption("Propuesta sin grabar");
    lblTexto_.setCaption("Esta propuesta quedó sin grabar:");
    lblPropuesta_.setCaption(words);
    cmdRecuperar_.setCaption("&Recuperar");
    cmdDescartar_.setCaption("&Descartar");
    cmdRecuperar_.setToolTip("Abre la propuesta como estaba");
    cmdDescartar_.setToolTip("La borra para siempre");
    setLayout(lay::column(lay::plain(lblTexto_), lay::plain(lblPropuesta_, 48),
                          lay::row(lay::space(), lay::plain(cmdRecuperar_), lay::plain(cmdDescartar_))));
    setTabOrder({&cmdRecuperar_, &cmdDescartar_});
    cmdRecuperar_.onClick = [this] { choose(Answer::recover); };
    cmdDescartar_.onClick = [this] { choose(Answer::discard); };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        }
    };
}

void RecoveryForm::choose(Answer answer) {
    answer_ = answer;
    unload();
}

}  // namespace velmora::desktop
