#include "velmora/adapters/host/work_orders.h"

#include "velmora/adapters/host/work_order_form.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/session.h"

namespace velmora::host {

void WorkOrderViewer::jLoad(std::int32_t number) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    WorkOrderForm form(session_->Connection());
    if (form.load(number)) {
        screen_.showModal(form);
        return;
    }
    screen_.show({.text = "No existe la orden de trabajo nº " + runtime::CStr(std::int64_t{number}) + ".",
                  .icon = screen::Icon::exclamation,
                  .title = "Orden de Trabajo"});
}

}  // namespace velmora::host
