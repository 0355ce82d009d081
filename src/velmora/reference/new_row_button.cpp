#include "velmora/reference/new_row_button.h"

namespace velmora::reference {

void NewRowButton::click() {
    if (isAdding()) {
        end();
    } else {
        begin();
    }
}

void NewRowButton::begin() {
    button_.setCaption("Cancelar");
    head_.setEnabled(false);
    // Chosen C-160: when the first field is in the frame that has just been disabled, it cannot take the focus, and the
    // button keeps it.
    if (Text1_(0).canTakeFocus()) {
        Text1_(0).setFocus();
    }
}

void NewRowButton::end() {
    button_.setCaption(idle);
    head_.setEnabled(true);
    disableHead();
}

void NewRowButton::disableHead() {
    for (const int field : {1, 2, 3, 4, 5, 11}) {
        Text1_(field).setEnabled(false);
    }
}

}  // namespace velmora::reference
