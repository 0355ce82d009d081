#include "velmora/adapters/host/delivery_notes.h"

#include "velmora/adapters/host/delivery_note_form.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::host {

void DeliveryNoteViewer::jLoad(std::int32_t id, bool) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    DeliveryNoteForm form(*session_);
    if (form.load(id)) {
        screen_.showModal(form);
        return;
    }
    screen_.show({.text = "No existe el albarán con la clave " + runtime::CStr(std::int64_t{id}) + ".",
                  .icon = screen::Icon::exclamation,
                  .title = "Albarán de Compra"});
}

}  // namespace velmora::host
