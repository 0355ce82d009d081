#pragma once
// A form that tells what it has: hints, a note, a state and a deed. For the status lines of all toolkits.

#include "velmora/platform/screen/form.h"

namespace velmora::testing {

/// F6 is refused with a note; F5, also "&Grabar", makes the record pending and tells the deed.
class ToldForm : public screen::Form {
  public:
    ToldForm() : Form("frmTold") {
        pitch.setHint("Paso de la cadena, en mm");
        price.setHint("Precio");
        save.setCaption("&Grabar (F5)");
        onKeyDown = [this](screen::KeyDown& key) {
            if (key.key == screen::Key::f6) {
                status().tellNote("No se puede duplicar");
            } else if (key.key == screen::Key::f5) {
                record = {.standing = screen::Standing::pending};
                status().tellDeed("Propuesta 321 grabada a las 10:32");
            }
        };
        status().setStateSource([this] { return record; });
        setLayout(screen::layout::column(screen::layout::field("Paso", pitch, 8).number(2),
                                         screen::layout::field("Precio", price, 8).number(2),
                                         screen::layout::plain(save)));
        setTabOrder({&pitch, &price, &save});
    }
    screen::TextBox pitch{*this, "pitch"};
    screen::TextBox price{*this, "price"};
    screen::Button save{*this, "cmdSave"};
    screen::RecordState record{.standing = screen::Standing::fresh};
};

}  // namespace velmora::testing
