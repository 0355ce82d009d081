#include "hosted_instance.h"

namespace velmora::stories {

void HostedInstance::jShowPropuesta(std::int32_t& nIdDpi) {
    com::Variant number = com::Variant::longNumber(nIdDpi);
    call("jShowPropuesta", {com::Argument::byRef(number)});
    nIdDpi = number.value().toLong();
}

void HostedInstance::jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden) {
    com::Variant number = com::Variant::longNumber(nIdDpi);
    com::Variant order = com::Variant::boolean(bOrden);
    call("jPrintPropuesta", {com::Argument::byRef(number), com::Argument::byRef(order)});
    nIdDpi = number.value().toLong();
    bOrden = order.value().toBool();
}

void HostedInstance::call(std::string_view member, com::Arguments arguments) {
    try {
        object_.call(member, arguments);
    } catch (const runtime::RuntimeError&) {
        ending_.raise();
        throw;
    }
    ending_.raise();
}

}  // namespace velmora::stories
