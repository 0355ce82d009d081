#include "velmora/proposal/work_order_display.h"

#include "velmora/platform/runtime/numbers.h"

namespace velmora::proposal {

namespace {

bool isNumeric(const sql::Value& value) {
    return value.isNumber() || (value.isText() && runtime::IsNumeric(value.toText()));
}

}  // namespace

void showWorkOrder(const sql::Value& number, session::Session& session, const platform::Desk& desk) {
    if (!isNumeric(number)) {
        return;
    }
    const auto orders = desk.components.create<components::WorkOrders>("KOLTAR.KOLTARD");
    orders->setMyBd(session);
    orders->jLoad(number.toLong());
}

}  // namespace velmora::proposal
